#include "patterns/formats/Raw4Pattern.h"

#include <bit>
#include <cstdint>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"

namespace talven {
namespace {

constexpr std::string_view kMagic("RAW4.00\0", 8);
constexpr std::size_t kFirstSegment = 61;
constexpr std::size_t kSegmentHead = 8;
constexpr std::size_t kRangeHead = 160;
constexpr std::size_t kPointSize = 4;
constexpr std::uint32_t kRangeType = 0;
constexpr std::uint32_t kMetadataType = 10;
constexpr std::uint32_t kHardwareType = 30;

/// Values at places of the file. Throws FatalIoError beyond its end.
class Bytes {
 public:
  Bytes(const std::string& name, std::string_view bytes) : name_(name), bytes_(bytes) {}

  std::size_t Size() const { return bytes_.size(); }
  std::string_view Take(std::size_t offset, std::size_t length) const {
    if (offset > Size() || length > Size() - offset)
      FailInFile(name_, std::to_string(length) + " bytes at byte " + std::to_string(offset),
                 "a file of " + std::to_string(Size()));
    return bytes_.substr(offset, length);
  }
  template <typename Integer>
  Integer Whole(std::size_t offset) const {
    Integer value = 0;
    const std::string_view field = Take(offset, sizeof(Integer));
    for (std::size_t i = sizeof(Integer); i-- > 0;)
      value = static_cast<Integer>(value << 8U | static_cast<unsigned char>(field[i]));
    return value;
  }
  std::uint32_t U32(std::size_t offset) const { return Whole<std::uint32_t>(offset); }
  double F32(std::size_t offset) const { return std::bit_cast<float>(Whole<std::uint32_t>(offset)); }
  double F64(std::size_t offset) const { return std::bit_cast<double>(Whole<std::uint64_t>(offset)); }
  /// Text up to a NUL or the end of its field.
  std::string_view Text(std::size_t offset, std::size_t length) const {
    const std::string_view field = Take(offset, length);
    return TrimSpace(field.substr(0, field.find('\0')));
  }

 private:
  const std::string& name_;
  std::string_view bytes_;
};

struct Range {
  std::size_t head = 0;
  std::size_t points = 0;
  std::uint32_t point_count = 0;
};

void TakeSegment(const Bytes& bytes, std::size_t offset, std::uint32_t type, std::uint32_t length, Pattern& pattern) {
  if (type == kMetadataType && length > 36 && bytes.Text(offset + 12, 24) == "SAMPLEID")
    pattern.title = bytes.Text(offset + 36, length - 36);
  if (type != kHardwareType || length < 112) return;
  const double alpha1 = bytes.F64(offset + 80);
  const double alpha2 = bytes.F64(offset + 88);
  const double ratio = bytes.F64(offset + 104);
  if (!IsWavelength(alpha1)) return;
  pattern.wavelength = alpha1;
  if (!IsWavelength(alpha2) || !(ratio > 0.0) || ratio > 1.0) return;
  pattern.wavelength_alpha2 = alpha2;
  pattern.alpha2_ratio = ratio;
}

/// Walks through the segments and gives the ranges on the way.
std::vector<Range> FindRanges(const std::string& name, const Bytes& bytes, Pattern& pattern) {
  std::vector<Range> ranges;
  for (std::size_t offset = kFirstSegment; offset < bytes.Size();) {
    const std::uint32_t type = bytes.U32(offset);
    if (type == kRangeType) {
      const std::uint32_t count = bytes.U32(offset + 4);
      if (bytes.U32(offset + 136) != kPointSize)
        FailInFile(name, "points of 4 bytes (one counter)", std::to_string(bytes.U32(offset + 136)) + " bytes");
      const Range range{.head = offset, .points = offset + kRangeHead + bytes.U32(offset + 140), .point_count = count};
      bytes.Take(range.points, std::size_t{count} * kPointSize);
      ranges.push_back(range);
      offset = range.points + std::size_t{count} * kPointSize;
      continue;
    }
    const std::uint32_t length = bytes.U32(offset + 4);
    if (length < kSegmentHead) FailInFile(name, "a segment of 8 bytes at least", std::to_string(length));
    bytes.Take(offset, length);
    TakeSegment(bytes, offset, type, length, pattern);
    offset += length;
  }
  return ranges;
}

/// Coupled scans and those of the detector move 2theta; all others move the sample.
bool MovesTwoTheta(std::string_view scan_type) {
  const std::string lower = ToLower(scan_type);
  return lower.find("coupled") != std::string::npos || lower.find("2theta") != std::string::npos ||
         lower.find("twotheta") != std::string::npos || lower.find("detector") != std::string::npos;
}

}  // namespace

bool LooksLikeRaw4(std::string_view bytes) {
  return bytes.starts_with(kMagic);
}

PatternFile ReadRaw4(const std::string& name, std::string_view content, const PatternReadOptions& options) {
  const Bytes bytes(name, content);
  PatternFile file;
  file.format = "RAW4.00";
  Pattern& pattern = file.pattern;
  const std::vector<Range> ranges = FindRanges(name, bytes, pattern);
  const Range& range = ranges[ChooseScan(name, ranges.size(), options, file)];
  pattern.scan_axis = bytes.Text(range.head + 32, 24);
  if (!MovesTwoTheta(pattern.scan_axis)) FailInFile(name, "a scan of 2theta", Quote(pattern.scan_axis));
  pattern.counts.reserve(range.point_count);
  for (std::size_t i = 0; i < range.point_count; ++i)
    pattern.counts.push_back(bytes.F32(range.points + i * kPointSize));
  const double time = bytes.F32(range.head + 92);
  if (time > 0.0) pattern.step_time = time;
  SetEvenAngles(name, bytes.F64(range.head + 72), bytes.F64(range.head + 80), pattern);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
