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
  const bool has_window = program == "talven";
  stream << "usage: " << program << " [JOB DRIVE [MOLPAK]]\n";
  if (has_window) stream << "       " << program << " --open FILE\n";
  stream << "\n"
            "  JOB     name of the job, at most 20 characters: its files are JOB.INS, JOB.HKL and so on\n"
            "  DRIVE   drive letter of the installation, as C or C:\n"
            "  MOLPAK  runs option 5 once, an automatic job with fixed settings and no questions\n";
  if (has_window) stream << "  FILE    a file of a job: its name gives the job, its place the directory\n";
  stream
      << "\n"
         "Without arguments the job and its directory are asked for. With a job the working directory is the one in\n"
         "the directory file DRIVE:\\exe\\VELDOR\\DIR.DEF, which every start without arguments rewrites.\n"
         "\n"
         "  -h, --help  prints this text\n"
         "  --version   prints the version\n"
         "\n"
         "The manual is in share/doc/talven of the installation (html/index.html or index.md), and in docs of the "
         "source.\n";
}

int Refuse(std::string_view program, std::string_view reason, std::string_view argument, std::ostream& messages) {
  messages << program << ": " << reason << ": " << argument << '\n';
  PrintUsage(program, messages);
  return kExitRefused;
}

}  // namespace

std::vector<std::string> CommandArguments(int argc, const char* const* argv) {
  std::vector<std::string> arguments = ProcessArguments(argc, argv);
  std::erase(arguments, "");
  return arguments;
}

std::optional<int> AnswerCommandLine(std::string_view program, const std::vector<std::string>& arguments,
                                     std::ostream& output, std::ostream& messages) {
  const std::string_view first = arguments.size() > 1 ? std::string_view(arguments[1]) : "";
  if (first == "--help" || first == "-h") {
    PrintUsage(program, output);
    return output.flush() ? kExitNormal : kExitFatalIo;
  }
  if (first == "--version") {
    output << program << ' ' << TALVEN_VERSION << '\n';
    return output.flush() ? kExitNormal : kExitFatalIo;
  }
  if (first.starts_with('-')) return Refuse(program, "unknown option", first, messages);
  if (ArgumentLength(first) > kLongestJobName)
    return Refuse(program, "job name longer than 20 characters", first, messages);
  return std::nullopt;
}

}  // namespace talven
