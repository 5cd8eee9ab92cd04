#include "ui/qt/QtToolkit.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <cstdio>
#include <utility>

#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"
#include "ui/qt/FileSelector.h"
#include "ui/qt/FormDialog.h"
#include "ui/qt/GuiThread.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/MessageDialog.h"
#include "ui/qt/OptionText.h"
#include "ui/qt/OutputWindow.h"
#include "ui/qt/Overlay.h"
#include "ui/qt/QtText.h"
#include "ui/qt/RunMemory.h"

namespace talven {
namespace {

void WaitFor(const QDialog& dialog) {
  QEventLoop loop;
  QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace

QtToolkit::QtToolkit(const std::vector<std::string>& arguments)
    : Toolkit(arguments), output_(std::make_unique<OutputWindow>()), memory_(std::make_unique<RunMemory>()) {}

QtToolkit::~QtToolkit() = default;

void QtToolkit::StartWithFile(std::string_view path) {
  const QFileInfo file(ToQString(path));
  memory_->opened = OpenedFile{file.completeBaseName(), file.absolutePath()};
}

void QtToolkit::WSoundSwitch(std::string_view state) {
  is_sound_on_ = state == "ON";
}

void QtToolkit::Beep() const {
  if (is_sound_on_) QApplication::beep();
}

void QtToolkit::OpenWindow(const QString& title, const QRect& place) {
  window_ = std::make_unique<MainWindow>(title, place);
  MainWindow* const window = window_.get();
  QObject::connect(window, &MainWindow::LeaveAsked, window, [this] { TakeLeaveWish(); });
  QObject::connect(window, &MainWindow::FinishChosen, window, [this] {
    is_leaving_ = true;
    if (form_ != nullptr) form_->EndAsItStands();
  });
  QObject::connect(window, &MainWindow::LeaveAtOnceChosen, window, [this] {
    is_left_at_once_ = true;
    if (form_ != nullptr) form_->EndAsItStands();
  });
  QObject::connect(window, &MainWindow::JobFileChosen, window, [this](const QString& path) { TakeJobFile(path); });
  QObject::connect(window, &MainWindow::OutputAsked, window, [this] { KeepOutput(); });
  window->Status().SetFolder(QDir::currentPath());
  if (when_opened_) when_opened_(*window);
  window->show();
  window->activateWindow();
  ShowRunning();
}

void QtToolkit::WindowOpen(const WindowRecord& record) {
  OnGui([&] { OpenWindow(ToQString(record.title), QRect(record.x, record.y, record.width, record.height)); });
}

void QtToolkit::WindowClose() {
  OnGui([&] {
    shown_form_.reset();
    const bool has_output = window_ && window_->Texts().HasText(kOutputTitle);
    window_.reset();
    if (has_output) KeepOutput();
  });
}

void QtToolkit::WGrTextFont(int /*selector*/, double width, double height, int /*mode*/) {
  PostToGui([=, this] {
    if (window_) window_->Pane().SetCharacterSize(width, height);
  });
}

void QtToolkit::IGrUnits(double left, double bottom, double right, double top) {
  PostToGui([=, this] {
    if (window_) window_->Pane().SetUnits(left, bottom, right, top);
  });
}

void QtToolkit::WGrTextAt(float x, float y, std::string_view text) {
  PostToGui([=, this, line = ToQString(text)] {
    if (window_) window_->Texts().DrawLine(x, y, line);
  });
}

void QtToolkit::WGrAreaClear() {
  PostToGui([this] {
    if (window_) window_->Pane().Clear();
  });
}

void QtToolkit::IOsWait(int hundredths) {
  if (hundredths <= 0) return;
  OnGui([&] {
    QEventLoop loop;
    QTimer::singleShot(hundredths * 10, &loop, &QEventLoop::quit);
    loop.exec();
  });
}

void QtToolkit::TellOfProgram(std::string_view line) {
  std::fprintf(stderr, "talven: %s\n", std::string(line).c_str());
}

void QtToolkit::JobSettled(std::string_view job) {
  OnGui([&] {
    memory_->job = ToQString(job);
    memory_->is_job_settled = true;
    memory_->opened.reset();
    if (!window_) return;
    window_->RememberJob(memory_->job);
    window_->Status().SetJob(memory_->job);
  });
}

void QtToolkit::TellHint(std::string_view hint) {
  OnGui([&] {
    if (window_) window_->Status().ShowRemark(ToQString(hint));
  });
}

void QtToolkit::TellProgress(std::int64_t done, std::int64_t total) {
  const int percent = static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(total));
  // The window is not told of every step: there may be millions.
  if (std::exchange(memory_->told_percent, percent) == percent) return;
  PostToGui([this, percent] {
    if (window_) window_->Status().ShowProgress(percent);
  });
}

void QtToolkit::ShowRunning() {
  memory_->told_percent = -1;
  if (window_) window_->Status().ShowRunning(memory_->running);
}

void QtToolkit::ShowWaiting(const QString& what) {
  if (!window_) return;
  window_->Status().SetFolder(QDir::currentPath());
  window_->Status().ShowWaiting(what);
  ShowFiles();
}

void QtToolkit::ShowFiles() {
  const QStringList written = memory_->files.Written();
  if (written.isEmpty()) return;
  window_->Status().ShowFiles(written);
  if (written.constFirst() == memory_->shown_pattern || !IsPatternFile(written.constFirst())) return;
  memory_->shown_pattern = written.constFirst();
  emit window_->PatternToShow(memory_->shown_pattern);
}

void QtToolkit::FollowOption(const FormState& options, int button) {
  const RunOption option = OptionOf(options);
  if (button != kOkButton && !option.is_comparison) return;
  memory_->running = option.text;
  memory_->files.Begin(QDir::currentPath(), memory_->job);
  memory_->shown_pattern.clear();
  if (!window_) return;
  window_->Status().ShowRemark({});
  const QString pattern = QDir::current().filePath(memory_->job + ".ING");
  if (option.reads_pattern && QFileInfo::exists(pattern)) emit window_->PatternToShow(pattern);
}

bool QtToolkit::AnswersByFile(FormState& form) {
  if (!memory_->opened || form.Spec().id != kJobNameForm) return false;
  form.EditText(job_name_field::kJobName, FromQString(memory_->opened->job));
  return !std::exchange(memory_->opened->has_named_job, true);
}

int QtToolkit::AskForm(FormState& form) {
  QWidget* const place = window_ ? window_->Form().Page() : nullptr;
  FormDialog dialog(
      form, [this] { Beep(); }, place);
  if (is_leaving_) {
    dialog.EndAsItStands();
    return dialog.result();
  }
  form_ = &dialog;
  if (window_) {
    if (form.Spec().id == kJobNameForm) dialog.OfferTexts(job_name_field::kJobName, window_->State().jobs);
    window_->Form().Show(dialog);
    window_->FitForm();
    ShowWaiting("Form " + dialog.windowTitle() + " waits");
  } else {
    dialog.show();
  }
  dialog.TakeFocus();
  WaitFor(dialog);
  form_ = nullptr;
  if (window_) window_->Form().Clear();
  if (window_) window_->TakeBackQuestion();
  return dialog.result();
}

int QtToolkit::RunForm(FormState& form) {
  const int button = OnGui([&] {
    const int result = AnswersByFile(form) ? kOkButton : AskForm(form);
    if (form.Spec().id == kOptionForm) FollowOption(form, result);
    ShowRunning();
    return result;
  });
  if (is_left_at_once_) throw LeftAtOnce();
  return button;
}

void QtToolkit::ShowForm(const FormState& form) {
  OnGui([&] {
    shown_state_ = form;
    shown_form_ = std::make_unique<FormDialog>(
        *shown_state_, [this] { Beep(); }, window_ ? window_->Form().Page() : nullptr);
    if (!window_) return shown_form_->show();
    window_->Form().Show(*shown_form_);
    window_->FitForm();
  });
}

void QtToolkit::HideForm(const FormState& form) {
  OnGui([&] {
    if (!shown_form_ || &shown_state_->Spec() != &form.Spec()) return;
    if (window_) window_->Form().Clear();
    shown_form_.reset();
  });
}

QString QtToolkit::MissingFile(std::string_view text) const {
  // As in "HKL File NOT Found": the kind of file is its ending.
  const std::string_view kind = text.substr(0, text.find(' '));
  if (text.find(" NOT Found") == std::string_view::npos || kind.size() != 3) return {};
  return QDir::toNativeSeparators(QDir::current().filePath(memory_->job + '.' + ToQString(kind)));
}

int QtToolkit::ShowMessage(const Message& message) {
  if (window_) window_->FitForm();
  QWidget* const place = window_ ? window_->MessagePlace() : nullptr;
  MessageDialog box(message, MissingFile(message.text), place);
  if (is_leaving_ && message.type != MessageType::kOk) return box.Answer();
  std::optional<Overlay> overlay;
  if (place != nullptr) overlay.emplace(&box, place);
  box.show();
  box_ = &box;
  box.TakeFocus();
  ShowWaiting("A message waits");
  WaitFor(box);
  box_ = nullptr;
  ShowRunning();
  return box.Answer();
}

int QtToolkit::AskMessage(const Message& message) {
  return OnGui([&] { return ShowMessage(message); });
}

void QtToolkit::TellFatalError(std::string_view text) {
  std::fprintf(stderr, "fatal I/O error: %s\n", std::string(text).c_str());
  AskMessage({.icon = MessageIcon::kStop, .text = text, .title = "TALVEN"});
}

std::optional<std::string> QtToolkit::AskFile(const FileRequest& request) {
  return OnGui([&]() -> std::optional<std::string> {
    if (is_leaving_) return std::nullopt;
    if (const auto opened = std::exchange(memory_->opened, std::nullopt))
      return FromQString(QDir(opened->folder).filePath(ToQString(request.proposed_name).trimmed()));
    ShowWaiting("A file is to be chosen");
    const auto path = SelectFile({request.filter, request.proposed_name, request.title}, window_.get());
    if (window_) window_->activateWindow();
    ShowRunning();
    return path ? std::optional(FromQString(*path)) : std::nullopt;
  });
}

void QtToolkit::TakeLeaveWish() {
  if (form_ != nullptr && !form_->HasExit()) return window_->AskHowToLeave();
  is_leaving_ = true;
  if (form_ != nullptr) form_->EndAsItStands();
  if (box_ != nullptr) box_->reject();
  if (form_ == nullptr && box_ == nullptr)
    window_->Status().ShowRemark("Talven closes when this step has come to its end.");
}

void QtToolkit::TakeJobFile(const QString& path) {
  if (memory_->is_job_settled) {
    // A session has one job: another one gets a window of its own.
    QProcess::startDetached(QCoreApplication::applicationFilePath(), {"--open", path});
    return;
  }
  StartWithFile(FromQString(path));
  if (form_ == nullptr || form_->Spec().id != kJobNameForm) return;
  memory_->opened->has_named_job = true;
  form_->FillAndEnd(job_name_field::kJobName, memory_->opened->job);
}

}  // namespace talven
