#include "shelx/ReadIndices.h"

#include <algorithm>
#include <cstdint>

#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

/// A set of indices that tells which came before, several times quicker than one that makes a node for each.
class IndexSet {
 public:
  IndexSet() : slots_(1024, 0) {}

  /// False if it was there already.
  bool Insert(const MillerIndex& index) {
    std::uint64_t& slot = SlotOf(KeyOf(std::max(index, -index)));
    if (slot != 0) return false;
    slot = KeyOf(std::max(index, -index));
    if (2 * ++count_ > slots_.size()) Grow();
    return true;
  }

 private:
  /// Where a key stands, or the free place for it.
  std::uint64_t& SlotOf(std::uint64_t key) {
    std::uint64_t slot = (key * 0x9E3779B97F4A7C15U) >> 20;
    while (true) {
      std::uint64_t& stored = slots_[slot++ & (slots_.size() - 1)];
      if (stored == key || stored == 0) return stored;
    }
  }

  void Grow() {
    std::vector<std::uint64_t> old(2 * slots_.size(), 0);
    old.swap(slots_);
    for (const std::uint64_t key : old)
      if (key != 0) SlotOf(key) = key;
  }

  /// Four columns hold -999 to 9999. The key is never 0.
  static std::uint64_t KeyOf(const MillerIndex& index) {
    constexpr std::int32_t kShift = 20'000;
    const auto part = [](std::int32_t value) { return static_cast<std::uint64_t>(value + kShift); };
    return (part(index.h) << 32U) | (part(index.k) << 16U) | part(index.l);
  }

  std::size_t count_ = 0;
  /// A power of two of them, at most half of them taken.
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
  IndexList list;
  IndexSet seen;
  std::string_view line;
  while (hkl.ReadLine(line)) {
    if (line.starts_with('#')) continue;
    const MillerIndex index = IndexOf(hkl, line);
    if (index == MillerIndex{}) break;
    if (seen.Insert(index))
      list.indices.push_back(index);
    else if (++list.repeated == 1)
      list.first_repeated = hkl.LineNumber();
  }
  return list;
}

}  // namespace talven
