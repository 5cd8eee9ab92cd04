#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {

namespace fs = std::filesystem;

const bool kOnWindows = false;
const std::string kOwnPath = "/nowhere/bin/talven-console";

fs::path TestDirectory::Drive() const { return root_ / "home/talven/drives/c"; }

void TestDirectory::SetDrive() const { setenv("XDG_DATA_HOME", (root_ / "home").c_str(), 1); }

void TestDirectory::WriteProgram(const std::string& name, const std::string& commands) const {
  const fs::path path = Drive() / "exe" / name;
  WriteFile(path, "#!/bin/sh\ncd '" + work_.string() + "' || exit\n" + commands + "\n");
  fs::permissions(path, fs::perms::owner_all);
}

bool LimitFileSize(std::optional<std::size_t> size) {
  std::signal(SIGXFSZ, [](int) {});  // not ignored, which the processes of a test would inherit
  const rlimit limit{size.value_or(RLIM_INFINITY), RLIM_INFINITY};
  return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

int RunCommand(const std::string& command) {
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace talven::test
