#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Process.h"

extern char** environ;

namespace talven {
namespace {

std::vector<std::string> SplitAtBlanks(std::string_view text) {
  std::vector<std::string> words;
  while (true) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return words;
    text.remove_prefix(first);
    const std::string_view word = text.substr(0, text.find(' '));
    words.emplace_back(word);
    text.remove_prefix(word.size());
  }
}

/// Starts a program whose standard input is empty. Nothing if that failed.
std::optional<pid_t> Spawn(const Command& command, bool detached) {
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&actions);
  posix_spawnattr_init(&attributes);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (detached) {
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  } else {
    posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
  }
  std::vector<char*> argv;
  argv.push_back(const_cast<char*>(command.program.c_str()));
  std::vector<std::string> arguments = SplitAtBlanks(command.arguments);
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  pid_t child = 0;
  const int error = posix_spawn(&child, command.program.c_str(), &actions, &attributes, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) return std::nullopt;
  return child;
}

}  // namespace

void EnsureStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    // The lowest descriptor that is free is this one, since those below it are open by now.
    if (fcntl(stream, F_GETFD) == -1) open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_WRONLY);
  }
  // Not ignored: they would stay so in the programs that are started.
  for (const int number : {SIGPIPE, SIGXFSZ}) std::signal(number, [](int) {});
}

bool HasDisplay() {
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

bool StartDetached(const Command& command) {
  return Spawn(command, true).has_value();
}

std::optional<int> RunAndWait(const Command& command) {
  std::signal(SIGCHLD, SIG_DFL);  // If it is ignored no exit code comes back.
  const auto child = Spawn(command, false);
  if (!child) return std::nullopt;
  int status = 0;
  while (waitpid(*child, &status, 0) < 0)
    if (errno != EINTR) return std::nullopt;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace talven
