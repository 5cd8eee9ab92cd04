#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>
// After the former, whose types it needs.
#include <shellapi.h>

#include <memory>

#include "app/CommandLine.h"
#include "textio/FileNames.h"

namespace talven {
namespace {

constexpr DWORD kLongestPath = 32768;

std::string OwnPath() {
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  return FromPath(path);
}

}  // namespace

std::vector<std::string> ProcessArguments(int /*argc*/, const char* const* /*argv*/) {
  std::vector<std::string> arguments = {OwnPath()};
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  for (int i = 1; i < count; ++i) arguments.push_back(FromPath(words.get()[i]));
  return arguments;
}

}  // namespace talven
