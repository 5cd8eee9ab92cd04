#include "ui/console/ConsoleToolkit.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <system_error>

#include "textio/FatalIoError.h"
#include "textio/FixedText.h"
#include "textio/Folder.h"
#include "textio/LetterCase.h"
#include "ui/Process.h"
#include "ui/console/FormDialogue.h"

namespace talven {
namespace {

/// The file that an answer chooses: in a folder it is the proposed one. A file is called as the answer calls it,
/// whatever its case on disk, and below the folders that exist under any spelling.
std::filesystem::path ChosenPath(std::string_view answer, std::string_view proposed_name) {
  std::error_code error;
  const auto written = NativePath(answer).value_or(ToPath(answer));
  auto path = written;
  auto type = std::filesystem::status(path, error).type();
  if (type == std::filesystem::file_type::not_found) {
    path = Folder().FindForWriting(answer).value_or(path);
    type = std::filesystem::status(path, error).type();
  }
  if (type == std::filesystem::file_type::directory) return path / ToPath(proposed_name).filename();
  return path.replace_filename(written.filename());
}

std::string FileHelp(const std::string& proposed_name) {
  return "[help] the path of a file, as " + proposed_name +
         "\n[help] the path of a folder, as .. : the proposed name in that folder\n"
         "[help] a blank line or cancel: none\n";
}

}  // namespace

ConsoleToolkit::ConsoleToolkit(const std::vector<std::string>& arguments, std::istream& input, std::ostream& output,
                               std::ostream& messages, bool is_interactive)
    : Toolkit(arguments), output_(output), messages_(messages), answers_(input, messages, is_interactive) {}

void ConsoleToolkit::WGrTextAt(float /*x*/, float /*y*/, std::string_view text) {
  output_ << TrimRight(text) << '\n';
}

void ConsoleToolkit::FlushPane() {
  if (!output_.flush()) throw FatalIoError("standard output: cannot be written");
}

void ConsoleToolkit::Tell(std::string_view lines) {
  FlushPane();
  messages_ << lines << std::flush;
}

std::optional<int> ConsoleToolkit::IOsCommand(std::string_view command, int flags) {
  const CommandLookup lookup = LookUpAndTell(command);
  if (!lookup.command) return std::nullopt;
  if ((flags & kWait) != 0) return RunAndWait(*lookup.command);
  return StartDetached(*lookup.command) ? std::optional(0) : std::nullopt;
}

void ConsoleToolkit::TellHint(std::string_view hint) {
  Tell(std::string(hint).append("\n"));
}

void ConsoleToolkit::TellOfProgram(std::string_view line) {
  Tell(std::string("[program] ").append(line).append("\n"));
}

int ConsoleToolkit::RunForm(FormState& form) {
  FlushPane();
  PrintForm(form, messages_);
  while (const auto answer = answers_.Next(AnswerReader::BlankLines::kSkip)) {
    if (answers_.IsCallForHelp(*answer)) {
      Tell(FormHelp(form));
      continue;
    }
    if (answers_.IsInteractive() && FillOnlyText(form, *answer)) return kOkButton;
    const FormAnswer outcome = AnswerForm(form, *answer);
    if (outcome.button) return *outcome.button;
    if (!outcome.refusal.empty()) answers_.Refuse(*answer, outcome.refusal);
  }
  return ButtonAtEnd(form);
}

void ConsoleToolkit::ShowDirectory(std::string_view directory) {
  Tell(std::string("[folder] ").append(directory).append("\n"));
}

int ConsoleToolkit::AskMessage(const Message& message) {
  std::string lines;
  std::string_view rest = message.text;
  while (true) {
    const std::size_t end = rest.find('\r');
    lines.append("[message] ").append(rest.substr(0, end)).append("\n");
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  Tell(lines);
  const std::vector<MessageButton> buttons = MessageButtons(message.type);
  if (buttons.size() == 1) return buttons.front().answer;
  std::string wanted;
  for (const MessageButton& button : buttons)
    wanted += (wanted.empty() ? "expected " : " or ") + std::string(button.text);
  while (const auto answer = answers_.Next(AnswerReader::BlankLines::kSkip)) {
    if (answers_.IsCallForHelp(*answer)) {
      Tell("[help] " + wanted + ", in upper or lower case\n");
      continue;
    }
    for (const MessageButton& button : buttons)
      if (EqualIgnoringCase(Trim(*answer), button.text)) return button.answer;
    answers_.Refuse(*answer, wanted);
  }
  return buttons.back().answer;
}

std::optional<std::string> ConsoleToolkit::AskFile(const FileRequest& request) {
  Tell(std::string("[file] ").append(TrimRight(request.title)).append("\n"));
  while (const auto answer = answers_.Next(AnswerReader::BlankLines::kKeep)) {
    if (answer->empty() || EqualIgnoringCase(Trim(*answer), "cancel")) return std::nullopt;
    if (answers_.IsCallForHelp(*answer)) {
      Tell(FileHelp(request.proposed_name));
      continue;
    }
    std::error_code error;
    const auto path = ChosenPath(*answer, request.proposed_name);
    if (!path.has_parent_path()) return FromPath(std::filesystem::current_path(error) / path);
    const auto folder = std::filesystem::canonical(path.parent_path(), error);
    if (!error && std::filesystem::is_directory(folder, error)) return FromPath(folder / path.filename());
    answers_.Refuse(*answer, "expected the path of a file or folder whose folder exists, a blank line or cancel");
  }
  return std::nullopt;
}

}  // namespace talven
