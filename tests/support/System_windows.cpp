// For tests under Wine: drive C is that of its prefix, and programs are stood in for by scripts of the system below.
#include <cstdlib>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {

namespace fs = std::filesystem;

const bool kOnWindows = true;
const std::string kOwnPath = "C:\\exe\\talven-console.exe";

void TestDirectory::SetDrive() const {
  // A program of the test before may still run.
  for (std::error_code error; fs::exists("C:/exe");) fs::remove_all("C:/exe", error);
}
fs::path TestDirectory::Drive() const { return "C:/"; }

void TestDirectory::WriteProgram(const std::string& name, const std::string& commands) const {
  fs::copy_file(TALVEN_STAND_IN, Drive() / "exe" / name);
  fs::create_directories(Drive() / "exe/scripts");
  const std::string directory = "$WINEPREFIX/drive_c/" + work_.relative_path().generic_string();
  WriteFile(Drive() / "exe/scripts" / name, "cd \"" + directory + "\"\n" + commands + "\n");
}

bool LimitFileSize(std::optional<std::size_t>) { return false; }

int RunCommand(const std::string& command) { return std::system(("\"" + command + "\"").c_str()); }

}  // namespace talven::test
