#include "support/TestFiles.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <thread>

namespace talven::test {

namespace fs = std::filesystem;

TestDirectory::TestDirectory() : before_(fs::current_path()) {
  std::random_device random;
  root_ = fs::canonical(fs::temp_directory_path()) / ("talven-" + std::to_string(random()));
  work_ = root_ / "work";
  fs::create_directories(work_);
  SetDrive();
  fs::create_directories(Drive() / "exe/VELDOR");
  WriteFile(Drive() / "exe/VELDOR/DIR.DEF", work_.string() + "\n");
  for (const char* program : {"mirade.exe", "kestra.exe"})
    WriteProgram(program, "printf '%s %s\\n' \"${0##*/}\" \"$*\" >../starting; mv ../starting ../started");
  fs::current_path(work_);
}

std::string TestDirectory::Started() const {
  const fs::path file = root_ / "started";
  for (int tries = 0; tries < 200 && !Exists(file); ++tries) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  const std::string started = ReadFile(file);
  fs::remove(file);
  return started;
}

TestDirectory::~TestDirectory() {
  std::error_code error;
  fs::current_path(before_, error);
  // A program that was started on leaving may be about to write, so that a file appears or goes meanwhile.
  for (int tries = 0; tries < 1000 && fs::exists(root_, error); ++tries) {
    fs::remove_all(root_, error);
    if (error) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

void WriteFile(const fs::path& name, std::string_view content) {
  std::ofstream stream(name, std::ios::binary);
  stream << content;
}

std::string ReadFile(const fs::path& name) {
  std::ifstream stream(name, std::ios::binary);
  if (!stream) return "(no file " + name.string() + ")";
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool Exists(const fs::path& name) { return fs::exists(name); }

std::string LineOf(const std::string& text, int number) {
  std::istringstream stream(text);
  std::string line;
  for (int i = 0; i < number; ++i)
    if (!std::getline(stream, line)) return "(no line " + std::to_string(number) + ")";
  return line;
}

int CountLines(const std::string& text) { return static_cast<int>(std::ranges::count(text, '\n')); }

int Count(std::string_view text, std::string_view part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

std::string Replaced(std::string text, std::string_view part, std::string_view by) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size()))
    text.replace(at, part.size(), by);
  return text;
}

}  // namespace talven::test
