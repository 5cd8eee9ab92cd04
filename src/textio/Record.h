// One line of output, built from left to right out of fields that follow each other with nothing between them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "textio/FieldFormat.h"

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
  Record& I(std::int64_t value, std::size_t width);
  Record& F(double value, std::size_t width, int decimals);
  Record& G(double value);

  std::string_view Text() const { return {characters_.data(), length_}; }
  void Clear() { length_ = 0; }

 private:
  std::span<char> Take(std::size_t count);
  static constexpr std::size_t kCapacity = 1024;
  std::array<char, kCapacity> characters_;
  std::size_t length_ = 0;
};

}  // namespace talven
