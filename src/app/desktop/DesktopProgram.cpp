#include "app/desktop/DesktopProgram.h"

#include <memory>

#include "app/Driver.h"
#include "app/desktop/WindowPlot.h"
#include "textio/FatalIoError.h"
#include "ui/qt/DesktopSession.h"
#include "ui/qt/QtToolkit.h"

namespace talven {
namespace {

int RunProgram(QtToolkit& toolkit) {
  try {
    Ui ui(toolkit);
    const auto program = std::make_unique<Program>();
    return RunDriver(ui, *program);
  } catch (const FatalIoError& error) {
    toolkit.TellFatalError(error.what());
    return kExitFatalIo;
  } catch (const LeftAtOnce&) {
    return kExitNormal;
  }
}

}  // namespace

int RunDesktop(const DesktopStart& start) {
  QtToolkit toolkit(start.arguments);
  toolkit.WhenOpened(PutPlotInto);
  if (!start.opened_file.empty()) toolkit.StartWithFile(start.opened_file);
  return RunSession([&] {
    const int exit_code = RunProgram(toolkit);
    toolkit.WindowClose();
    toolkit.WaitForOutput();
    return exit_code;
  });
}

}  // namespace talven
