#include "ui/qt/QtToolkit.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTimer>
#include <cstdio>

#include "ui/Process.h"
#include "ui/qt/CommandWindow.h"
#include "ui/qt/FileSelector.h"
#include "ui/qt/FormDialog.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/MessageDialog.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

/// Paints what has changed while the logic goes on; what the user does waits.
void PaintPending() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

QtToolkit::QtToolkit(const std::vector<std::string>& arguments) : Toolkit(arguments) {}

QtToolkit::~QtToolkit() = default;

void QtToolkit::WSoundSwitch(std::string_view state) {
  is_sound_on_ = state == "ON";
}

void QtToolkit::Beep() const {
  if (is_sound_on_) QApplication::beep();
}

void QtToolkit::WindowOpen(const WindowRecord& window) {
  window_ =
      std::make_unique<MainWindow>(ToQString(window.title), QRect(window.x, window.y, window.width, window.height));
  QObject::connect(window_.get(), &MainWindow::LeaveAsked, window_.get(), [this] { is_leaving_ = true; });
  window_->show();
  PaintPending();
}

void QtToolkit::WindowClose() {
  shown_form_.reset();
  window_.reset();
}

void QtToolkit::WGrTextFont(int /*selector*/, double width, double height, int /*mode*/) {
  if (window_) window_->Pane().SetCharacterSize(width, height);
}

void QtToolkit::IGrUnits(double left, double bottom, double right, double top) {
  if (window_) window_->Pane().SetUnits(left, bottom, right, top);
}

void QtToolkit::WGrTextAt(float x, float y, std::string_view text) {
  if (!window_) return;
  window_->Pane().DrawTextAt(x, y, ToQString(text));
  PaintPending();
}

void QtToolkit::WGrAreaClear() {
  if (window_) window_->Pane().Clear();
}

void QtToolkit::IOsWait(int hundredths) {
  if (hundredths <= 0) return;
  QEventLoop loop;
  QTimer::singleShot(hundredths * 10, &loop, &QEventLoop::quit);
  loop.exec();
}

std::optional<int> QtToolkit::IOsCommand(std::string_view command, int flags) {
  const auto found = LookUp(command).command;
  if (!found) return std::nullopt;
  TellOfProgram("starting " + found->program + found->arguments);
  if ((flags & kWait) == 0) return StartDetached(*found) ? std::optional(0) : std::nullopt;
  if (window_) window_->setEnabled(false);
  const auto exit_code = CommandWindow(*found, window_.get()).Run((flags & kHidden) != 0);
  if (window_) window_->setEnabled(true);
  return exit_code;
}

void QtToolkit::TellOfProgram(std::string_view line) {
  std::fprintf(stderr, "talven: %s\n", std::string(line).c_str());
}

void QtToolkit::RunDialog(QDialog& dialog) {
  QEventLoop loop;
  QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
  dialog.show();
  dialog.raise();
  dialog.activateWindow();
  loop.exec();
}

int QtToolkit::RunForm(FormState& form) {
  FormDialog dialog(
      form, [this] { Beep(); }, window_.get());
  if (window_) QObject::connect(window_.get(), &MainWindow::LeaveAsked, &dialog, &FormDialog::EndAsItStands);
  if (is_leaving_) {
    dialog.EndAsItStands();
  } else {
    RunDialog(dialog);
  }
  return dialog.result();
}

void QtToolkit::ShowForm(const FormState& form) {
  shown_state_ = form;
  shown_form_ = std::make_unique<FormDialog>(
      *shown_state_, [this] { Beep(); }, window_.get());
  shown_form_->show();
}

void QtToolkit::HideForm(const FormState& form) {
  if (shown_form_ && &shown_state_->Spec() == &form.Spec()) shown_form_.reset();
}

int QtToolkit::AskMessage(const Message& message) {
  MessageDialog box(message, window_.get());
  if (window_) QObject::connect(window_.get(), &MainWindow::LeaveAsked, &box, &QDialog::reject);
  if (!is_leaving_ || message.type == MessageType::kOk) RunDialog(box);
  return box.Answer();
}

std::optional<std::string> QtToolkit::AskFile(const FileRequest& request) {
  if (is_leaving_) return std::nullopt;
  const auto path = SelectFile({request.filter, request.proposed_name, request.title}, window_.get());
  return path ? std::optional(FromQString(*path)) : std::nullopt;
}

}  // namespace talven
