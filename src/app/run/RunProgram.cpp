#include "app/run/RunProgram.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "app/run/CommandLineError.h"
#include "app/run/StopSignal.h"
#include "textio/FatalIoError.h"
#include "ui/Toolkit.h"

namespace talven {
namespace {

constexpr const char* kProgram = "talven-run";

/// A command with the parser of its options.
struct Entry {
  std::unique_ptr<BatchCommand> command;
  std::unique_ptr<CLI::App> parser;
  BatchOptions options;
};

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : " ").append(word);
  return text;
}

std::vector<std::unique_ptr<Entry>> MakeEntries(Commands commands) {
  std::vector<std::unique_ptr<Entry>> entries;
  for (std::unique_ptr<BatchCommand>& command : commands) {
    auto entry = std::make_unique<Entry>();
    const CommandText text = command->Text();
    entry->parser = std::make_unique<CLI::App>(text.summary, std::string(kProgram) + " " + text.name);
    entry->parser->set_help_flag("-h,--help", "prints this text");
    entry->parser->footer(text.details + "\nColumns of the table: " + Joined(command->TableColumns()));
    entry->parser->get_formatter()->column_width(30);
    command->AddOptions(*entry->parser);
    AddBatchOptions(*entry->parser, command->Features(), entry->options);
    entry->command = std::move(command);
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::string Usage(const std::vector<std::unique_ptr<Entry>>& entries) {
  std::string text =
      "Usage: talven-run COMMAND [OPTIONS] FILE...\n"
      "\n"
      "Powder diffraction work on many files, without questions. Outputs go beside each input or into -o DIR, a table\n"
      "goes to standard output, messages go to standard error. Commands:\n\n";
  for (const auto& entry : entries) {
    const CommandText command = entry->command->Text();
    text += "  " + command.name + std::string(12 - command.name.size(), ' ') + command.summary + "\n";
  }
  return text +
         "\n"
         "  --help      prints this text, COMMAND --help the options of a command, --help-all those of all\n"
         "  --version   prints the version\n"
         "\n"
         "Exit codes: 0 all done; 1 some inputs failed, each named, the others done; 2 a bad command line, nothing "
         "was\n"
         "done; 130 or 143 stopped by SIGINT or SIGTERM, with whole files only: --resume goes on from there.\n"
         "\n"
         "The manual is in share/doc/talven of the installation (html/batch.html or batch.md), and in docs of the "
         "source.\n";
}

/// Prints a text that was asked for.
int Print(const std::string& text, const RunStreams& streams) {
  if (streams.output << text << std::flush) return 0;
  streams.messages << kProgram << ": standard output: cannot be written" << std::endl;
  return 1;
}

int Refuse(const std::string& name, std::string_view text, const RunStreams& streams) {
  streams.messages << name << ": " << text << "\n"
                   << "Try: " << name << " --help" << std::endl;
  return kExitRefused;
}

/// The parser's complaint, in other words where its own are hard to understand.
std::string Complaint(const CLI::ParseError& error) {
  const std::string text = error.what();
  const std::size_t twice = text.find(": At Most 1 required");
  if (twice != std::string::npos) return text.substr(0, twice) + " is given twice";
  const std::size_t missing = text.find(": 1 required ");
  if (missing == std::string::npos || !text.ends_with(" missing")) return text;
  const std::size_t begin = missing + std::string_view(": 1 required ").size();
  return text.substr(0, missing) + ": a value is missing: " + text.substr(begin, text.rfind(' ') - begin);
}

int Carry(Entry& entry, const std::string& name, const RunStreams& streams) {
  const BatchOptions& options = entry.options;
  Reporter reporter(streams, options.writes_json ? TableStyle::kJson : TableStyle::kTabs, options.is_quiet);
  try {
    entry.command->Run(GatherInputs(options, streams.input), options, reporter);
  } catch (const CommandLineError& error) {
    return Refuse(name, error.what(), streams);
  } catch (const std::exception& error) {
    reporter.Fail(name, error.what());
  }
  if (StopSignal() != 0) return 128 + StopSignal();
  return reporter.FailureCount() > 0 ? 1 : 0;
}

/// Arguments as the parser wants them: without the program and the command, the last first.
std::vector<std::string> Reversed(const std::vector<std::string>& arguments) {
  return {arguments.rbegin(), arguments.rend() - 2};
}

int RunCommandLine(Entry& entry, const std::vector<std::string>& arguments, const RunStreams& streams) {
  const std::string name = std::string(kProgram) + " " + entry.command->Text().name;
  try {
    entry.parser->parse(Reversed(arguments));
  } catch (const CLI::CallForHelp&) {
    return Print(entry.parser->help(), streams);
  } catch (const CLI::ParseError& error) {
    return Refuse(name, Complaint(error), streams);
  } catch (const CommandLineError& error) {
    return Refuse(name, error.what(), streams);
  }
  return Carry(entry, name, streams);
}

}  // namespace

int RunTalvenRun(const std::vector<std::string>& arguments, const RunStreams& streams, Commands commands) {
  const auto entries = MakeEntries(std::move(commands));
  const std::string first = arguments.size() > 1 ? arguments[1] : "";
  if (first == "--help" || first == "-h") return Print(Usage(entries), streams);
  if (first == "--version") return Print(std::string(kProgram) + " " + TALVEN_VERSION + "\n", streams);
  if (first == "--help-all") {
    std::string text = Usage(entries);
    for (const auto& entry : entries) text += "\n" + entry->parser->help();
    return Print(text, streams);
  }
  const auto entry =
      std::ranges::find_if(entries, [&first](const auto& one) { return one->command->Text().name == first; });
  if (entry != entries.end()) return RunCommandLine(**entry, arguments, streams);
  if (first.empty()) return Refuse(kProgram, "expected a command", streams);
  return Refuse(kProgram, "there is no command " + first + (first.starts_with("-") ? ": options come after it" : ""),
                streams);
}

}  // namespace talven
