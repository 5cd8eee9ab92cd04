// The toolkit of the desktop program: a main window with the text pane, forms and boxes in front of it.
//
// Forms and message boxes leave the main window alive, so that its text can be copied and the window be closed while
// they are open. A closed main window stands for the end of all answers, as the end of input does on a terminal: a form
// ends by EXIT if it has that button, else by OK; a question gets its last button; no file is selected. A box that only
// tells something is still shown.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/Toolkit.h"
#include "ui/forms/FormState.h"

class QDialog;

namespace talven {

class FormDialog;
class MainWindow;

/// Needs a DesktopSession that lives longer.
class QtToolkit : public Toolkit {
 public:
  explicit QtToolkit(const std::vector<std::string>& arguments);
  ~QtToolkit() override;

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

 protected:
  int RunForm(FormState& form) override;
  void ShowForm(const FormState& form) override;
  void HideForm(const FormState& form) override;
  int AskMessage(const Message& message) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;

 private:
  /// Shows a dialog in front of the main window until it ends.
  void RunDialog(QDialog& dialog);
  void Beep() const;

  std::unique_ptr<MainWindow> window_;
  /// The form that is shown without a mode, and its own state.
  std::optional<FormState> shown_state_;
  std::unique_ptr<FormDialog> shown_form_;
  bool is_sound_on_ = false;
  bool is_leaving_ = false;
};

}  // namespace talven
