#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include "textio/FileNames.h"
#include "ui/Process.h"

namespace talven {
namespace {

/// What a program that is waited for has as its streams: no input, and this process's standard error for all that it
/// prints.
class ChildStreams {
 public:
  ChildStreams() {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    input_ =
        CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr);
    DuplicateHandle(GetCurrentProcess(), GetStdHandle(STD_ERROR_HANDLE), GetCurrentProcess(), &output_, 0, TRUE,
                    DUPLICATE_SAME_ACCESS);
  }
  ~ChildStreams() {
    CloseHandle(input_);
    if (output_ != nullptr) CloseHandle(output_);
  }
  ChildStreams(const ChildStreams&) = delete;
  ChildStreams& operator=(const ChildStreams&) = delete;

  void PutInto(STARTUPINFOW& startup) const {
    startup.dwFlags |= STARTF_USESTDHANDLES;
    startup.hStdInput = input_;
    startup.hStdOutput = output_;
    startup.hStdError = output_;
  }

 private:
  HANDLE input_ = nullptr;
  HANDLE output_ = nullptr;
};

/// Starts a program, on the given streams or detached without any; the caller closes both handles.
std::optional<PROCESS_INFORMATION> Start(const Command& command, const ChildStreams* streams) {
  const std::wstring program = ToPath(command.program).wstring();
  std::wstring line = L'"' + program + L'"' + ToPath(command.arguments).wstring();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  if (streams != nullptr) streams->PutInto(startup);
  PROCESS_INFORMATION process{};
  const bool inherits = streams != nullptr;
  if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, inherits, inherits ? 0 : DETACHED_PROCESS,
                      nullptr, nullptr, &startup, &process))
    return std::nullopt;
  return process;
}

void CloseHandles(const PROCESS_INFORMATION& process) {
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace

void EnsureStandardStreams() {}  // Files take no descriptors of the streams here.

bool HasDisplay() {
  return true;
}

bool StartDetached(const Command& command) {
  const auto process = Start(command, nullptr);
  if (process) CloseHandles(*process);
  return process.has_value();
}

std::optional<int> RunAndWait(const Command& command) {
  const ChildStreams streams;
  const auto process = Start(command, &streams);
  if (!process) return std::nullopt;
  WaitForSingleObject(process->hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process->hProcess, &code);
  CloseHandles(*process);
  return static_cast<int>(code);
}

}  // namespace talven
