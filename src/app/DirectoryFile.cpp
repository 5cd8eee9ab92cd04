#include "app/DirectoryFile.h"

#include <system_error>

#include "textio/FixedText.h"
#include "textio/Folder.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr std::size_t kLineLength = 80;

std::string FileName(char drive_letter) {
  return drive_letter + std::string(":\\exe\\VELDOR\\DIR.DEF");
}

/// The directory on the first line: all of it, or its first 80 columns where only they name one.
std::string ReadDirectory(InputFile& file) {
  const std::string_view line = TrimRight(file.RequireLine("a line with the working directory"));
  return std::string(Folder().Find(line) ? line : TrimRight(line.substr(0, kLineLength)));
}

}  // namespace

std::optional<std::string> ReadDirectoryFile(char drive_letter) {
  InputFile file;
  if (!file.Open(Folder(), FileName(drive_letter))) return std::nullopt;
  return ReadDirectory(file);
}

std::string RequireDirectoryFile(char drive_letter) {
  InputFile file;
  file.OpenRequired(Folder(), FileName(drive_letter));
  return ReadDirectory(file);
}

void WriteDirectoryFile(char drive_letter, std::string_view directory) {
  const std::string name = FileName(drive_letter);
  std::error_code error;
  if (const auto path = Folder().FindForWriting(name)) std::filesystem::create_directories(path->parent_path(), error);
  // Jobs of a cluster start side by side and share the file, so that it is never empty in between.
  OutputFile file;
  file.OpenOver(Folder(), name);
  std::string line(directory);
  if (line.size() < kLineLength) line.resize(kLineLength, ' ');
  file.WriteLine(line);
  file.Close();
}

}  // namespace talven
