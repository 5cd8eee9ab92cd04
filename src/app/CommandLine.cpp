#include "app/CommandLine.h"

#include <ostream>

#include "textio/FixedText.h"
#include "textio/LineCleaner.h"
#include "ui/RunState.h"
#include "ui/Toolkit.h"

namespace talven {
namespace {

/// Length of an argument as the program takes it: cut to 80 characters, control characters as blanks.
std::size_t ArgumentLength(std::string_view argument) {
  Text80 text(argument);
  BlankControlCharacters(text);
  return text.Trimmed().size();
}

void PrintUsage(std::string_view program, std::ostream& stream) {
  stream
      << "usage: " << program
      << " [JOB DRIVE [MOLPAK]]\n"
         "\n"
         "  JOB     name of the job, at most 20 characters: its files are JOB.INS, JOB.HKL and so on\n"
         "  DRIVE   drive letter of the installation, as C or C:\n"
         "  MOLPAK  runs option 5 once, an automatic job with fixed settings and no questions\n"
         "\n"
         "Without arguments the job and its directory are asked for. With a job the working directory is the one in\n"
         "the directory file DRIVE:\\exe\\VELDOR\\DIR.DEF, which every start without arguments rewrites.\n"
         "\n"
         "  --help     prints this text\n"
         "  --version  prints the version\n";
}

}  // namespace

std::vector<std::string> CommandArguments(int argc, const char* const* argv) {
  std::vector<std::string> arguments = ProcessArguments(argc, argv);
  std::erase(arguments, "");
  return arguments;
}

std::optional<int> AnswerCommandLine(std::string_view program, const std::vector<std::string>& arguments,
                                     std::ostream& output, std::ostream& messages) {
  if (arguments.size() == 2 && arguments[1] == "--help") {
    PrintUsage(program, output);
    return output.flush() ? kExitNormal : kExitFatalIo;
  }
  if (arguments.size() == 2 && arguments[1] == "--version") {
    output << program << ' ' << TALVEN_VERSION << '\n';
    return output.flush() ? kExitNormal : kExitFatalIo;
  }
  if (arguments.size() >= 2 && ArgumentLength(arguments[1]) > kLongestJobName) {
    messages << program << ": job name longer than 20 characters: " << arguments[1] << '\n';
    PrintUsage(program, messages);
    return kExitRefused;
  }
  return std::nullopt;
}

}  // namespace talven
