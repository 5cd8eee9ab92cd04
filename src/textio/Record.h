// One line of output, built from left to right out of fields that follow each other with nothing between them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "textio/FieldFormat.h"
#include "textio/ShortFields.h"

namespace talven {

/// A line in memory. The functions are named after the notation of the layouts: 3X, A, I5, F8.2, G15.6. Every layout
/// of this system is far below the capacity; what would pass it is cut.
class Record {
 public:
  /// Leaves the characters unset: to clear all of them would cost more than to write most lines.
  Record() {}  // NOLINT(modernize-use-equals-default)

  Record& X(std::size_t count);
  /// The whole text.
  Record& A(std::string_view text);
  Record& I(std::int64_t value, std::size_t width) {
    const auto field = Take(width);
    if (!PlaceFour(field, value)) FormatI(field, value);
    return *this;
  }
  Record& F(double value, std::size_t width, int decimals) {
    const auto field = Take(width);
    if (!PlaceShort(field, value, decimals)) FormatF(field, value, decimals);
    return *this;
  }
  Record& G(double value);

  std::string_view Text() const { return {characters_.data(), length_}; }
  void Clear() { length_ = 0; }

 private:
  std::span<char> Take(std::size_t count) {
    // Two ways on purpose: in the usual one a width that is known when this is compiled stays known.
    if (count > kCapacity - length_) return TakeRest();
    const std::span<char> field(characters_.data() + length_, count);
    length_ += count;
    return field;
  }
  std::span<char> TakeRest();
  static constexpr std::size_t kCapacity = 1024;
  std::array<char, kCapacity> characters_;
  std::size_t length_ = 0;
};

}  // namespace talven
