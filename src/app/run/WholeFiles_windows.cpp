#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <cerrno>

#include "app/run/WholeFiles.h"
#include "textio/FileNames.h"

namespace talven {
namespace {

bool SyncFile(const std::string& path) {
  const HANDLE file =
      CreateFileW(ToPath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool is_synced = FlushFileBuffers(file) != 0;
  return CloseHandle(file) != 0 && is_synced;
}

}  // namespace

std::size_t SyncFiles(const std::vector<std::string>& paths) {
  for (std::size_t i = 0; i < paths.size(); ++i)
    if (!SyncFile(paths[i])) return i;
  return paths.size();
}

bool CreateNewFile(const std::string& path) {
  const HANDLE file = CreateFileW(ToPath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  if (file != INVALID_HANDLE_VALUE) return CloseHandle(file) != 0;
  const DWORD error = GetLastError();
  errno = error == ERROR_ACCESS_DENIED ? EACCES : error == ERROR_PATH_NOT_FOUND ? ENOENT : EEXIST;
  return false;
}

long ProcessNumber() {
  return static_cast<long>(GetCurrentProcessId());
}

}  // namespace talven
