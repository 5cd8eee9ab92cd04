#include <fcntl.h>
#include <unistd.h>

#include "app/run/WholeFiles.h"

namespace talven {

bool SyncFile(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool is_synced = fdatasync(file) == 0;
  return close(file) == 0 && is_synced;
}

long ProcessNumber() {
  return static_cast<long>(getpid());
}

}  // namespace talven
