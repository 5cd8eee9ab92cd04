// The toolkit of the desktop program: a main window with pane, form and plot beside each other.
//
// The session may run in another thread than the window (see RunSession); every operation does its work in the thread
// of the window. While a form or message box waits, the rest of the window can be used. A closed main window stands for
// the end of all answers, as the end of input does on a terminal: a form ends by EXIT if it has that button, else by
// OK; a question gets its last button; no file is selected. A box that only tells something is still shown. Only where
// a form without EXIT waits, the user is asked first, and can leave at once.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/Process.h"
#include "ui/Toolkit.h"
#include "ui/forms/FormState.h"

class QRect;
class QString;

namespace talven {

class FormDialog;
class MainWindow;
class MessageDialog;
class OutputWindow;
struct RunMemory;

/// Thrown by a form when the user leaves at once.
struct LeftAtOnce {};

/// Needs a DesktopSession that lives longer.
class QtToolkit : public Toolkit {
 public:
  explicit QtToolkit(const std::vector<std::string>& arguments);
  ~QtToolkit() override;

  /// Called with every main window as soon as it is there: to put a plot in.
  void WhenOpened(std::function<void(MainWindow&)> action) { when_opened_ = std::move(action); }
  /// Answers the questions of a start by hand, job and folder, with those of a file.
  void StartWithFile(std::string_view path);
  /// Tells an error that ends the process, on standard error and until it was read.
  void TellFatalError(std::string_view text);
  /// Waits until the output of a program that went wrong has been closed.
  void WaitForOutput();

  void WInitialise(std::string_view) override {}
  void WSoundSwitch(std::string_view state) override;
  void WindowOpen(const WindowRecord& window) override;
  void WindowClose() override;
  /// The logic sets text at its left edge only.
  void WGrTextSetup(int) override {}
  void WGrTextFont(int selector, double width, double height, int mode) override;
  void IGrUnits(double left, double bottom, double right, double top) override;
  void WGrTextAt(float x, float y, std::string_view text) override;
  void WGrAreaClear() override;
  void IOsWait(int hundredths) override;
  std::optional<int> IOsCommand(std::string_view command, int flags) override;
  void TellOfProgram(std::string_view line) override;
  void JobSettled(std::string_view job) override;
  void TellHint(std::string_view hint) override;
  void TellProgress(std::int64_t done, std::int64_t total) override;

 protected:
  int RunForm(FormState& form) override;
  void ShowForm(const FormState& form) override;
  void HideForm(const FormState& form) override;
  int AskMessage(const Message& message) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;

 private:
  void OpenWindow(const QString& title, const QRect& place);
  int AskForm(FormState& form);
  /// Answers the form of the job's name where that is known already.
  bool AnswersByFile(FormState& form);
  void FollowOption(const FormState& options, int button);
  int ShowMessage(const Message& message);
  /// The file that a message misses, with its full path; empty for other messages.
  QString MissingFile(std::string_view text) const;
  std::optional<int> RunProgram(const Command& command, const QString& title, int flags);
  void TellMissingProgram(const CommandLookup& lookup, const QString& title);
  /// A program has ended: keeps its output where something is to be read.
  void JudgeProgram(std::optional<int> exit_code, const std::string& job);
  bool IsUnattended() const;
  /// Shows the output of the last program beside what is to be read: in a window, or in a tab where that would lie over
  /// the form.
  void KeepOutput();

  void TakeLeaveWish();
  void TakeJobFile(const QString& path);
  void ShowRunning();
  void ShowWaiting(const QString& what);
  /// The files that this run has written so far, as links, and its pattern in the plot.
  void ShowFiles();
  void Beep() const;

  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<OutputWindow> output_;
  std::function<void(MainWindow&)> when_opened_;
  /// The form that is shown without a mode, and its own state.
  std::optional<FormState> shown_state_;
  std::unique_ptr<FormDialog> shown_form_;
  /// What waits for an answer.
  FormDialog* form_ = nullptr;
  MessageDialog* box_ = nullptr;
  std::unique_ptr<RunMemory> memory_;
  bool is_sound_on_ = false;
  bool is_leaving_ = false;
  bool is_left_at_once_ = false;
};

}  // namespace talven
