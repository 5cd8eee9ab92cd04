// The part of the toolkit that runs programs and tells what became of them.
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <filesystem>

#include "textio/Folder.h"
#include "ui/qt/GuiThread.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/OutputWindow.h"
#include "ui/qt/Overlay.h"
#include "ui/qt/QtText.h"
#include "ui/qt/QtToolkit.h"

namespace talven {
namespace {

constexpr const char* kNotTheModels =
    "There are no calculated F squared: the pattern is not the model's, all its reflections have the same intensity.";

/// The first argument of a command: the job.
std::string JobOf(std::string_view command) {
  const std::size_t first = command.find_first_not_of(' ', std::min(command.find(' '), command.size()));
  if (first == std::string_view::npos) return {};
  return std::string(command.substr(first, command.find(' ', first) - first));
}

}  // namespace

bool QtToolkit::IsUnattended() const {
  return IOsArgument(3).starts_with("MOLPAK");
}

std::optional<int> QtToolkit::IOsCommand(std::string_view command, int flags) {
  const CommandLookup lookup = LookUpAndTell(command);
  if ((flags & kWait) == 0) return lookup.command && StartDetached(*lookup.command) ? std::optional(0) : std::nullopt;
  return OnGui([&]() -> std::optional<int> {
    const std::string job = JobOf(command);
    const QString title = "Refining " + ToQString(job);
    if (!lookup.command) {
      TellMissingProgram(lookup, title);
      return std::nullopt;
    }
    const auto exit_code = RunProgram(*lookup.command, title, flags);
    JudgeProgram(exit_code, job);
    return exit_code;
  });
}

std::optional<int> QtToolkit::RunProgram(const Command& command, const QString& title, int flags) {
  if (window_) {
    PlaceOver(*output_, *window_->MessagePlace());
    window_->Status().ShowRunning(title);
  }
  const auto exit_code = output_->Run(command, title, (flags & kHidden) != 0);
  if (window_) window_->activateWindow();
  ShowRunning();
  return exit_code;
}

void QtToolkit::TellMissingProgram(const CommandLookup& lookup, const QString& title) {
  output_->Begin(title);
  output_->Remark("No program was found to refine with. These were looked at:");
  for (const std::string& path : lookup.looked_at) output_->Remark("    " + ToQString(path));
  output_->Remark(kNotTheModels);
  if (!window_) return;
  window_->Status().ShowRemark(kNotTheModels);
  if (!IsUnattended()) KeepOutput();
}

void QtToolkit::KeepOutput() {
  if (window_ && !window_->HasPlotColumn()) {
    output_->hide();
    return window_->Texts().ShowText(kOutputTitle, output_->Text());
  }
  if (window_ && !output_->isVisible()) PlaceOver(*output_, *window_->MessagePlace());
  output_->Keep();
}

void QtToolkit::JudgeProgram(std::optional<int> exit_code, const std::string& job) {
  // What a program leaves that was stopped may be half a file.
  while (output_->WasStopped() && Folder().Delete(job + ".FCF")) continue;
  const bool has_fcf = Folder().Find(job + ".FCF").has_value();
  if (!exit_code) output_->Remark("The program could not be started.");
  if (output_->WasStopped())
    output_->Remark("The program was stopped.");
  else if (exit_code && *exit_code != 0)
    output_->Remark("The program ended with code " + QString::number(*exit_code) + '.');
  if (!has_fcf) {
    output_->Remark("It left no file " + ToQString(job) + ".FCF. " + kNotTheModels);
    if (window_) window_->Status().ShowRemark(kNotTheModels);
  }
  const bool is_well = exit_code == 0 && has_fcf && !output_->WasStopped();
  if (is_well || IsUnattended()) {
    output_->hide();
  } else {
    KeepOutput();
  }
}

void QtToolkit::WaitForOutput() {
  OnGui([&] {
    if (!output_->isVisible()) return;
    QEventLoop loop;
    QObject::connect(output_.get(), &OutputWindow::Closed, &loop, &QEventLoop::quit);
    loop.exec();
  });
}

}  // namespace talven
