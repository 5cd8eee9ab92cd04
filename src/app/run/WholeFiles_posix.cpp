#include <fcntl.h>
#include <unistd.h>

#include "app/run/WholeFiles.h"

namespace talven {
namespace {

/// Has the system begin to write, without waiting: files that are all on their way become whole in one go.
void BeginSync([[maybe_unused]] int file) {
#ifdef __linux__
  sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

}  // namespace

std::size_t SyncFiles(const std::vector<std::string>& paths) {
  std::vector<int> files;
  for (const std::string& path : paths) {
    files.push_back(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (files.back() >= 0) BeginSync(files.back());
  }
  std::size_t unsynced = paths.size();
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i] < 0 || fdatasync(files[i]) != 0) unsynced = i;
    if (files[i] >= 0 && close(files[i]) != 0) unsynced = i;
  }
  return unsynced;
}

bool CreateNewFile(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  return file >= 0 && close(file) == 0;
}

long ProcessNumber() {
  return static_cast<long>(getpid());
}

}  // namespace talven
