#include "shelx/ReadIndices.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

/// A set of indices that tells which came before, several times quicker than one that makes a node for each.
class IndexSet {
 public:
  explicit IndexSet(std::size_t most) : slots_(std::bit_ceil(2 * most + 2), 0) {}

  /// False if it was there already.
  bool Insert(const MillerIndex& index) {
    const std::uint64_t key = KeyOf(std::max(index, -index));
    std::uint64_t slot = (key * 0x9E3779B97F4A7C15U) >> 20;
    while (true) {
      std::uint64_t& stored = slots_[slot & (slots_.size() - 1)];
      if (stored == key) return false;
      if (stored == 0) {
        stored = key;
        return true;
      }
      ++slot;
    }
  }

 private:
  /// Four columns hold -999 to 9999. The key is never 0.
  static std::uint64_t KeyOf(const MillerIndex& index) {
    constexpr std::int32_t kShift = 20'000;
    const auto part = [](std::int32_t value) { return static_cast<std::uint64_t>(value + kShift); };
    return (part(index.h) << 32U) | (part(index.k) << 16U) | part(index.l);
  }

  std::vector<std::uint64_t> slots_;
};

MillerIndex IndexOf(const TextInput& hkl, std::string_view line) {
  const auto h = ReadI(Columns(line, 1, 4));
  const auto k = ReadI(Columns(line, 5, 8));
  const auto l = ReadI(Columns(line, 9, 12));
  if (!h || !k || !l) hkl.Fail("h, k and l in columns 1 to 12", Quote(line));
  return {*h, *k, *l};
}

}  // namespace

IndexList ReadIndices(TextInput& hkl) {
  constexpr std::size_t kShortestRow = 13;
  IndexList list;
  IndexSet seen(hkl.Content().size() / kShortestRow + 1);
  std::string_view line;
  while (hkl.ReadLine(line)) {
    if (line.starts_with('#')) continue;
    const MillerIndex index = IndexOf(hkl, line);
    if (index == MillerIndex{}) break;
    if (seen.Insert(index))
      list.indices.push_back(index);
    else
      ++list.repeated;
  }
  return list;
}

}  // namespace talven
