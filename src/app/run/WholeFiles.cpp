#include "app/run/WholeFiles.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "textio/FatalIoError.h"
#include "textio/FileNames.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

/// A file under a name of its own, gone at the end unless it has been renamed.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& target) {
    std::string name = FromPath(target.filename());
    name.insert(0, 1, '.').append(".").append(std::to_string(ProcessNumber())).append(".tmp");
    path_ = target.parent_path() / ToPath(name);
  }
  ~TemporaryFile() {
    std::error_code error;
    if (is_there_) fs::remove(path_, error);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// False with `errno` set if the system refuses.
  bool Write(std::string_view content) {
    std::ofstream stream;
    stream.rdbuf()->pubsetbuf(nullptr, 0);
    errno = 0;
    stream.open(path_, std::ios::binary | std::ios::trunc);
    is_there_ = stream.is_open();
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    return !stream.fail() && SyncFile(FromPath(path_));
  }

  std::error_code RenameTo(const fs::path& target) {
    std::error_code error;
    fs::rename(path_, target, error);
    if (!error) is_there_ = false;
    return error;
  }

 private:
  fs::path path_;
  bool is_there_ = false;
};

}  // namespace

void WriteWholeFile(const std::string& path, std::string_view content) {
  TemporaryFile file(ToPath(path));
  if (!file.Write(content)) {
    const std::string reason = errno != 0 ? ": " + std::generic_category().message(errno) : "";
    throw FatalIoError(path + ": cannot be written" + reason);
  }
  if (const std::error_code error = file.RenameTo(ToPath(path)))
    throw FatalIoError(path + ": cannot be written: " + error.default_error_condition().message());
}

}  // namespace talven
