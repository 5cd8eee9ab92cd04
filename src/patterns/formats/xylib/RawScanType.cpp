#include "patterns/formats/xylib/RawScanType.h"

#include <array>
#include <cstdint>

namespace talven {
namespace {

constexpr std::string_view kMagic = "RAW1.01";
// Places in the file and in the head of a range.
constexpr std::size_t kFirstRange = 712;
constexpr std::size_t kPoints = 4;
constexpr std::size_t kScanType = 196;
constexpr std::size_t kPointSize = 252;
constexpr std::size_t kExtraHead = 256;

constexpr std::array<std::string_view, 9> kAxes = {
    "2Theta/Theta", "2Theta/Theta unlocked", "2Theta", "Omega", "Chi", "Phi", "X", "Y", "Z"};

/// A number of four bytes, the lowest first; nothing beyond the end.
std::optional<std::size_t> Read(std::string_view bytes, std::size_t offset) {
  if (offset > bytes.size() || bytes.size() - offset < 4) return std::nullopt;
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8U | static_cast<unsigned char>(bytes[offset + i]);
  return value;
}

}  // namespace

std::optional<std::string> RawScanType(std::string_view bytes, std::size_t range) {
  if (!bytes.starts_with(kMagic)) return std::nullopt;
  std::size_t offset = kFirstRange;
  for (; range > 0; --range) {
    const auto head = Read(bytes, offset);
    const auto points = Read(bytes, offset + kPoints);
    const auto size = Read(bytes, offset + kPointSize);
    const auto extra = Read(bytes, offset + kExtraHead);
    if (!head || !points || !size || !extra) return std::nullopt;
    offset += *head + *extra + *points * *size;
    if (offset > bytes.size()) return std::nullopt;
  }
  const auto type = Read(bytes, offset + kScanType);
  if (!type || *type >= kAxes.size()) return std::nullopt;
  return std::string(kAxes[*type]);
}

bool StandsStill(std::string_view scan_type) {
  return !scan_type.empty() && !scan_type.starts_with("2Theta");
}

}  // namespace talven
