// Files of a test: a directory of its own, and reading and writing there.
#pragma once

#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace talven::test {

/// A new empty directory, current while the object lives, with a data home inside it that holds the directory file of
/// drive C and stand-ins for the programs started on exit, which leave their name and arguments in `../started`. Gone
/// with all that is in it at the end.
class TestDirectory {
 public:
  TestDirectory();
  ~TestDirectory();
  TestDirectory(const TestDirectory&) = delete;
  TestDirectory& operator=(const TestDirectory&) = delete;

  /// Where the files of the job lie.
  const std::filesystem::path& Path() const { return work_; }
  /// The folder of drive C in the data home.
  std::filesystem::path Drive() const;
  /// Puts a shell script into the place of a program on drive C; it runs in the directory of the job's files.
  void WriteProgram(const std::string& name, const std::string& commands) const;
  /// What the program started on exit has left, waited for.
  std::string Started() const;

 private:
  void SetDrive() const;

  std::filesystem::path root_;
  std::filesystem::path work_;
  std::filesystem::path before_;
};

void WriteFile(const std::filesystem::path& name, std::string_view content);
/// The content of a file; a text that says so if it is not there.
std::string ReadFile(const std::filesystem::path& name);
bool Exists(const std::filesystem::path& name);
/// There a file has one name in whatever case, and tests have no links and no full disk.
extern const bool kOnWindows;
/// Makes writes beyond a size fail, or no longer; false where the system can't.
bool LimitFileSize(std::optional<std::size_t> size);
/// Line `number` of a text, from 1, without its end.
std::string LineOf(const std::string& text, int number);
int CountLines(const std::string& text);
/// How often a text holds another, and the text with each of them replaced.
int Count(std::string_view text, std::string_view part);
std::string Replaced(std::string text, std::string_view part, std::string_view by);

/// The text of the error that a call throws.
template <typename Call>
std::string ErrorOf(const Call& call) {
  try {
    call();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "(no error)";
}

}  // namespace talven::test
