#include "app/console/ConsoleProgram.h"

#include <memory>
#include <ostream>

#include "app/CommandLine.h"
#include "app/Driver.h"
#include "textio/FatalIoError.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven {

int RunConsole(const std::vector<std::string>& arguments, const ConsoleStreams& streams) {
  if (const auto exit_code = AnswerCommandLine("talven-console", arguments, streams.output, streams.messages))
    return *exit_code;
  try {
    ConsoleToolkit toolkit(arguments, streams.input, streams.output, streams.messages, streams.is_interactive);
    Ui ui(toolkit);
    const auto program = std::make_unique<Program>();
    return RunDriver(ui, *program);
  } catch (const FatalIoError& error) {
    streams.messages << "fatal I/O error: " << error.what() << std::endl;
    return kExitFatalIo;
  } catch (const RefusedAnswer& refusal) {
    streams.messages << refusal.what() << std::endl;
    return kExitRefused;
  }
}

}  // namespace talven
