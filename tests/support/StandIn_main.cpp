// A program of drive C under Wine: runs the shell script of its name in the folder `scripts` beside it, and waits.
#include <process.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
  const std::filesystem::path self(argv[0]);
  const std::string script =
      std::string(std::getenv("WINEPREFIX")) + "/drive_c/exe/scripts/" + self.filename().string();
  std::string command = "\"sh '" + script + "'";
  for (int i = 1; i < argc; ++i) command += std::string(" ") + argv[i];
  const std::string code_file = "Z:" + script + ".code";
  std::filesystem::remove(code_file);
  command += "; echo $? >'" + script + ".new'; mv '" + script + ".new' '" + script + ".code'\"";
  _spawnl(_P_NOWAIT, "Z:\\bin\\sh", "sh", "-c", command.c_str(), nullptr);
  for (int code = 0;; Sleep(5))
    if (std::ifstream(code_file) >> code) return code;
}
