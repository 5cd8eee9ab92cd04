#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include "textio/FileNames.h"
#include "ui/Process.h"

namespace talven {
namespace {

/// Starts a program; the caller closes both handles.
std::optional<PROCESS_INFORMATION> Start(std::string_view command, DWORD flags) {
  const auto found = FindCommand(command);
  if (!found) return std::nullopt;
  std::wstring line = L'"' + ToPath(found->program).wstring() + L'"' + ToPath(found->arguments).wstring();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr, &startup, &process))
    return std::nullopt;
  return process;
}

void CloseHandles(const PROCESS_INFORMATION& process) {
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace

void EnsureStandardStreams() {}  // Files take no descriptors of the streams here.

bool StartDetached(std::string_view command) {
  const auto process = Start(command, DETACHED_PROCESS);
  if (process) CloseHandles(*process);
  return process.has_value();
}

std::optional<int> RunAndWait(std::string_view command) {
  const auto process = Start(command, 0);
  if (!process) return std::nullopt;
  WaitForSingleObject(process->hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process->hProcess, &code);
  CloseHandles(*process);
  return static_cast<int>(code);
}

}  // namespace talven
