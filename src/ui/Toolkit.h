// The boundary: every operation that the logic needs of a GUI toolkit, under the toolkit's own names.
//
// What a toolkit shows and asks is left to the classes that derive from this one. What is the same in all of them, the
// rules of forms and the services of the operating system, is done here once.
#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "textio/CalendarTime.h"
#include "ui/CommandLookup.h"
#include "ui/forms/FormSpec.h"

namespace talven {

class FormState;

struct WindowRecord {
  int flags = 0;
  /// A negative position and a size below 1 are the system's choice.
  int x = -1;
  int y = -1;
  int width = 0;
  int height = 0;
  std::string_view title = {};
};

enum class MessageType { kOk, kOkCancel, kRetryCancel, kYesNo, kYesNoCancel, kAbortRetryIgnore };
enum class MessageIcon { kNone, kStop, kQuestion, kExclamation, kInformation };

struct Message {
  MessageType type = MessageType::kOk;
  MessageIcon icon = MessageIcon::kNone;
  /// 1 the first button, 2 the second, 3 the third.
  int default_button = 1;
  /// Lines are parted by carriage returns.
  std::string_view text = {};
  std::string_view title = {};
};

/// A button of a message box: what it says, and what WDialogQuery(4) gives when it was pressed.
struct MessageButton {
  std::string_view text;
  int answer = 0;
};
std::vector<MessageButton> MessageButtons(MessageType type);

/// What WDialogQuery can be asked.
inline constexpr int kExitButtonQuery = 1;
inline constexpr int kCurrentDialogQuery = 3;
inline constexpr int kOutcomeQuery = 4;

/// Flag of WSelectFile: the current directory stays where the user left it.
inline constexpr int kKeepDirectory = 8;
/// Mode of WDialogShow: modal.
inline constexpr int kModal = 1;
/// Flags of IOsCommand.
inline constexpr int kHidden = 1;
inline constexpr int kWait = 2;

/// Process exit codes.
inline constexpr int kExitNormal = 0;
inline constexpr int kExitFatalIo = 1;
inline constexpr int kExitRefused = 2;

class Toolkit {
 public:
  /// `arguments` are those of the process, the program's own path first.
  explicit Toolkit(const std::vector<std::string>& arguments);
  virtual ~Toolkit();
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;

  // Window and pane.
  virtual void WInitialise(std::string_view title) = 0;
  virtual void WSoundSwitch(std::string_view state) = 0;
  virtual void WindowOpen(const WindowRecord& window) = 0;
  virtual void WindowClose() = 0;
  virtual void WGrTextSetup(int justification) = 0;
  /// Selects the pane's font; width and height are fractions of the drawing area.
  virtual void WGrTextFont(int selector, double width, double height, int mode) = 0;
  virtual void IGrUnits(double left, double bottom, double right, double top) = 0;
  virtual void WGrTextAt(float x, float y, std::string_view text) = 0;
  virtual void WGrAreaClear() = 0;

  // Forms. All field operations act on the current form; without one they have no effect.
  void WDialogLoad(int id);
  void WDialogSelect(int id);
  /// x and y of -1 centre the form. With mode 1 it returns when a button was pressed, without a mode at once.
  void WDialogShow(int x, int y, int focus_field, std::optional<int> mode = {});
  void WDialogUnload(int id);
  void WDialogFieldState(int field, int state);
  std::int32_t WDialogGetCheckBox(int field) const;
  std::int32_t WDialogGetRadioButton(int first_field) const;
  std::int32_t WDialogGetInteger(int field) const;
  float WDialogGetReal(int field) const;
  std::string WDialogGetString(int field) const;
  /// Length of the field's text without its trailing blanks.
  std::int32_t WDialogGetStringLength(int field) const;
  void WDialogPutInteger(int field, std::int32_t value);
  void WDialogPutReal(int field, float value, std::optional<RealFormat> format = {});

  /// The job of the session is known: for toolkits that show it.
  virtual void JobSettled(std::string_view /*job*/) {}
  /// A remark on an input, in one line, apart from pane and boxes: what is the matter with it and what helps.
  virtual void TellHint(std::string_view /*hint*/) {}
  /// So much of what runs is done; `total` is above 0. For toolkits that show it.
  virtual void TellProgress(std::int64_t /*done*/, std::int64_t /*total*/) {}

  // Questions. The outcome stands in WDialogQuery(4).
  void WMessageBox(const Message& message);
  /// `name` goes in as the proposed name and comes back as the full path; on cancel it is unchanged.
  void WSelectFile(std::string_view filter, int flags, std::string& name, std::string_view title);
  int WDialogQuery(int what) const;

  // The operating system.
  /// The nth argument, cut to 80 characters; blank if there is none. Argument 0 is the program's own path.
  std::string IOsArgument(int number) const;
  std::string IOsDirName() const;
  /// A failed change is not told: the directory stays.
  void IOsDirChange(std::string_view directory);
  virtual CalendarDate IOsDate() const;
  virtual ClockTime IOsTime() const;
  /// Waits while the window is served; 0 does nothing.
  virtual void IOsWait(int hundredths) = 0;
  /// Starts a program, or the companion in its place (see LookUpCommand); with flag 2 returns when it has finished,
  /// with its exit code, or nothing if it could not be started.
  virtual std::optional<int> IOsCommand(std::string_view command, int flags) = 0;
  /// Closes the main window and starts a program, or the companion in its place, without waiting. Gives the exit code
  /// with which this process then ends: 0, or 2 after a message box if the program could not be started. A companion
  /// with a window is not started where there is no display; that is no failure.
  int IOsExecute(std::string_view command);

 protected:
  /// The program that a composed command means here.
  CommandLookup LookUp(std::string_view command) const;
  /// The same, and says so: that it starts now, or that there is none, and where it was looked for.
  CommandLookup LookUpAndTell(std::string_view command);
  /// Says which program is started, or why none is, apart from all that the logic shows.
  virtual void TellOfProgram(std::string_view line) = 0;

  struct FileRequest {
    std::string_view filter;
    std::string proposed_name;
    std::string title;
  };

  /// Shows a form until a button ends it, and gives that button's id.
  virtual int RunForm(FormState& form) = 0;
  virtual void ShowForm(const FormState& form) = 0;
  /// The form is about to go.
  virtual void HideForm(const FormState& form) = 0;
  /// Shows a message box and gives the answer of the button that was pressed.
  virtual int AskMessage(const Message& message) = 0;
  /// The full path of the chosen file, or nothing after a cancel. May change the current directory on the way.
  virtual std::optional<std::string> AskFile(const FileRequest& request) = 0;
  /// A file selector has been answered, and the current directory, `directory` now, changed if it was to be.
  virtual void ShowDirectory(std::string_view /*directory*/) {}

 private:
  FormState* Find(int id);
  FormState* Current() { return Find(current_form_); }
  const FormState* Current() const { return const_cast<Toolkit*>(this)->Current(); }

  std::vector<std::string> arguments_;
  /// The loaded forms; each stays where it is until it is unloaded.
  std::list<FormState> forms_;
  int current_form_ = 0;
  int exit_button_ = 0;
  int outcome_ = 0;
};

}  // namespace talven
