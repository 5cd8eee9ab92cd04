#include "app/desktop/DesktopProgram.h"

#include <memory>

#include "app/Driver.h"
#include "textio/FatalIoError.h"
#include "ui/qt/DesktopSession.h"
#include "ui/qt/QtToolkit.h"

namespace talven {

int RunDesktop(const std::vector<std::string>& arguments) {
  try {
    QtToolkit toolkit(arguments);
    Ui ui(toolkit);
    const auto program = std::make_unique<Program>();
    return RunDriver(ui, *program);
  } catch (const FatalIoError& error) {
    ShowFatalError(error.what());
    return kExitFatalIo;
  }
}

}  // namespace talven
