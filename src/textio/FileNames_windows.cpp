#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include "textio/FileNames.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

/// The text in wide characters; empty if it is not valid in the code page.
std::wstring Widen(std::string_view text, UINT code_page, DWORD flags) {
  const auto size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // No code page makes more characters than it has bytes.
  wide.resize(static_cast<std::size_t>(MultiByteToWideChar(code_page, flags, text.data(), size, wide.data(), size)));
  return wide;
}

}  // namespace

fs::path ToPath(std::string_view name) {
  std::wstring wide = Widen(name, CP_UTF8, MB_ERR_INVALID_CHARS);
  return wide.empty() ? Widen(name, CP_ACP, 0) : wide;
}

std::string FromPath(const fs::path& path) {
  const std::wstring& wide = path.native();
  const auto size = static_cast<int>(wide.size());
  std::string text(3 * wide.size(), '\0');
  text.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), 3 * size, nullptr, nullptr)));
  return text;
}

std::optional<fs::path> NativePath(std::string_view name) {
  return ToPath(name);
}

// Not by std::filesystem::copy_file, which takes any two files for the same one with the libraries of mingw-w64.
std::error_code CopyPath(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fs::equivalent(from, to, error)) return std::make_error_code(std::errc::file_exists);
  if (CopyFileW(from.c_str(), to.c_str(), FALSE)) return {};
  return {static_cast<int>(GetLastError()), std::system_category()};
}

bool RemovePath(const fs::path& path) {
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  return DeleteFileW(path.c_str()) != FALSE;
}

}  // namespace talven
