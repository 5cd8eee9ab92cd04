#include "textio/OutputFile.h"

#include <cerrno>
#include <cstdint>
#include <system_error>

#include "textio/FatalIoError.h"
#include "textio/FixedText.h"

namespace talven {

OutputFile::~OutputFile() {
  if (stream_.is_open()) stream_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
}

void OutputFile::Open(const Folder& folder, std::string_view name, Spelling spelling) {
  FindPath(folder, name, spelling);
  OpenReplacing();
}

void OutputFile::OpenOver(const Folder& folder, std::string_view name) {
  FindPath(folder, name, Spelling::kAny);
  stream_.open(path_, std::ios::binary | std::ios::in);
  is_written_over_ = stream_.is_open();
  if (!is_written_over_) OpenReplacing();
}

void OutputFile::FindPath(const Folder& folder, std::string_view name, Spelling spelling) {
  if (stream_.is_open()) Close();
  name_ = TrimRight(name);
  const auto path = folder.FindForWriting(name_, spelling);
  if (!path) throw FatalIoError(name_ + ": cannot be opened for writing: there is no such drive");
  path_ = *path;
  stream_.rdbuf()->pubsetbuf(nullptr, 0);  // Lines are gathered here, so the stream needs no buffer of its own.
  buffer_.reserve(kBufferSize + 1024);
}

void OutputFile::OpenReplacing() {
  errno = 0;
  stream_.open(path_, std::ios::binary | std::ios::trunc);
  if (!stream_) Fail("cannot be opened for writing");
}

void OutputFile::Flush() {
  errno = 0;
  stream_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  stream_.flush();
  buffer_.clear();
  if (!stream_) Fail("cannot be written");
}

void OutputFile::Rewind() {
  buffer_.clear();
  Close();
  OpenReplacing();
}

void OutputFile::Close() {
  if (!stream_.is_open()) return;
  Flush();
  std::error_code error;
  if (is_written_over_) std::filesystem::resize_file(path_, static_cast<std::uintmax_t>(stream_.tellp()), error);
  is_written_over_ = false;
  stream_.close();
  if (!stream_) Fail("cannot be closed");
}

void OutputFile::CloseAndDelete() {
  Close();
  std::error_code error;
  if (!std::filesystem::remove(path_, error)) throw FatalIoError(name_ + ": cannot be deleted");
}

void OutputFile::Fail(std::string_view what) const {
  const int code = errno;
  std::string text = name_ + ": " + std::string(what);
  if (code != 0) text += ": " + std::generic_category().message(code);
  throw FatalIoError(text);
}

}  // namespace talven
