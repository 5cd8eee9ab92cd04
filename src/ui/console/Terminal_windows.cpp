#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <streambuf>

#include "textio/FileNames.h"
#include "ui/console/Terminal.h"

namespace talven {
namespace {

constexpr wchar_t kCtrlZ = 26;
constexpr std::size_t kBufferSize = 64 * 1024;

/// Lines typed on the console, in UTF-8: by way of the C library other letters than ASCII would come in its code page.
class ConsoleInput : public std::streambuf {
 protected:
  int_type underflow() override {
    std::array<wchar_t, 2048> line;
    DWORD length = 0;
    if (!ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), line.data(), static_cast<DWORD>(line.size()), &length, nullptr) ||
        length == 0 || line.front() == kCtrlZ)
      return traits_type::eof();
    text_ = FromPath(std::wstring(line.data(), length));
    setg(text_.data(), text_.data(), text_.data() + text_.size());
    return traits_type::to_int_type(text_.front());
  }

 private:
  std::string text_;
};

}  // namespace

bool IsTerminalInput() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != FALSE;
}

bool IsTerminalMessages() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
}

void PrepareTerminal() {
  for (std::FILE* const stream : {stdout, stderr}) {
    // The same bytes as on other systems; a console takes a lone LF for the end of a line too.
    _setmode(_fileno(stream), _O_BINARY);
    // Without a buffer a console would get one byte at a time, and so no letter of two.
    std::setvbuf(stream, nullptr, _IOFBF, kBufferSize);
  }
  if (IsTerminalInput()) {
    static ConsoleInput input;
    std::cin.rdbuf(&input);
  }
  static const UINT code_page_before = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  std::atexit([] { SetConsoleOutputCP(code_page_before); });
}

}  // namespace talven
