#include "textio/InputFile.h"

#include <array>
#include <fstream>
#include <new>
#include <system_error>

#include "textio/FatalIoError.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

/// Reads a stream to its end; false if the system reports an error on the way.
bool ReadWhole(std::ifstream& stream, std::uintmax_t expected_size, std::string& content) {
  content.resize(static_cast<std::size_t>(expected_size));
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(stream.gcount()));
  // A file that tells no size, or has grown since, goes on beyond that.
  for (std::array<char, 4096> more; stream;) {
    stream.read(more.data(), more.size());
    content.append(more.data(), static_cast<std::size_t>(stream.gcount()));
  }
  return !stream.bad();
}

}  // namespace

bool InputFile::Open(const Folder& folder, std::string_view name) {
  Close();
  name_ = TrimRight(name);
  auto path = folder.PathOf(name_);
  if (!path) return false;
  std::error_code error;
  std::uintmax_t size = std::filesystem::file_size(*path, error);
  if (error) {
    path = folder.Find(name_);
    if (!path) return false;
    size = std::filesystem::file_size(*path, error);
  }
  if (error) {
    // Only a file tells its size: a folder can't be read, and a device might have no end.
    if (!std::filesystem::is_fifo(*path, error)) return false;
    size = 0;
  }
  std::ifstream stream(*path, std::ios::binary);
  if (!stream) return false;
  try {
    if (!ReadWhole(stream, size, content_)) throw FatalIoError(name_ + ": cannot be read");
  } catch (const std::bad_alloc&) {
    throw FatalIoError(name_ + ": cannot be read: there is not enough memory");
  }
  Rewind();
  return true;
}

void InputFile::OpenRequired(const Folder& folder, std::string_view name) {
  if (!Open(folder, name)) throw FatalIoError(name_ + ": cannot be opened: expected an existing file, found none");
}

void InputFile::Close() {
  content_.clear();
  content_.shrink_to_fit();
  Rewind();
}

}  // namespace talven
