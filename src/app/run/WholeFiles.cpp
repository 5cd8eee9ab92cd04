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

[[noreturn]] void Fail(const WholeFile& file, const std::error_code& error) {
  const std::string reason = error ? ": " + error.default_error_condition().message() : "";
  throw FatalIoError(file.path + ": cannot be written" + reason);
}

[[noreturn]] void FailByErrno(const WholeFile& file) {
  Fail(file, {errno, std::generic_category()});
}

/// Files under names of their own, gone at the end unless they have been renamed.
class TemporaryFiles {
 public:
  TemporaryFiles() = default;
  ~TemporaryFiles() {
    std::error_code error;
    for (const std::string& path : paths_) fs::remove(ToPath(path), error);
  }
  TemporaryFiles(const TemporaryFiles&) = delete;
  TemporaryFiles& operator=(const TemporaryFiles&) = delete;

  void Write(const WholeFile& file) {
    const fs::path target = ToPath(file.path);
    std::string name = FromPath(target.filename());
    name.insert(0, 1, '.').append(".").append(std::to_string(ProcessNumber())).append(".tmp");
    const fs::path path = target.parent_path() / ToPath(name);
    std::error_code error;
    fs::remove(path, error);  // Left by a process of the same number that was ended.
    errno = 0;
    if (!CreateNewFile(FromPath(path))) FailByErrno(file);
    paths_.push_back(FromPath(path));
    std::ofstream stream;
    stream.rdbuf()->pubsetbuf(nullptr, 0);
    stream.open(path, std::ios::binary | std::ios::trunc);
    if (!stream) FailByErrno(file);
    stream.write(file.content.data(), static_cast<std::streamsize>(file.content.size()));
    stream.close();
    if (stream.fail()) FailByErrno(file);
  }

  void RenameTo(const std::vector<WholeFile>& files) {
    errno = 0;
    const std::size_t unsynced = SyncFiles(paths_);
    if (unsynced < files.size()) FailByErrno(files[unsynced]);
    for (std::size_t i = 0; i < files.size(); ++i) {
      std::error_code error;
      fs::rename(ToPath(paths_[i]), ToPath(files[i].path), error);
      if (error) Fail(files[i], error);
    }
    paths_.clear();
  }

 private:
  std::vector<std::string> paths_;
};

}  // namespace

void WriteWholeFiles(const std::vector<WholeFile>& files) {
  TemporaryFiles temporary;
  for (const WholeFile& file : files) temporary.Write(file);
  temporary.RenameTo(files);
}

}  // namespace talven
