// Where the programs are that a composed command asks for: those of the installation on the drive, and those of our own
// that stand in for them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talven {

struct Command {
  /// Path of the program that exists.
  std::string program;
  /// What is composed after its name, as it stands.
  std::string arguments;
};

struct CommandLookup {
  /// What is to be started; nothing if there is no such program.
  std::optional<Command> command;
  /// It is one of our own, in the place of the one that was asked for.
  bool is_companion = false;
  /// It shows a window.
  bool needs_display = false;
  /// The paths that were looked at, in this order; the last is where the program is, if there is one.
  std::vector<std::string> looked_at;
};

/// Takes a command composed as `C:\exe\kestra.exe ABC C:` apart, a program's name without blanks and its arguments, and
/// looks for its program without regard to case, then without its `.exe`. Where there is none, a companion is looked
/// for beside the running program, then in ../libexec/talven from there: for kvrl97 talven-fcalc with the same
/// arguments, for kestra talven-view with the job alone. `own_path` is the full path of the running program; without a
/// folder in it there are no companions.
CommandLookup LookUpCommand(std::string_view command, std::string_view own_path);

}  // namespace talven
