// A fixed array counted from 1, so that formulas read as in the notation of the field.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>

namespace talven {

/// N elements with indices 1 to N, zero at the start. The index is checked in debug builds.
template <typename T, std::int32_t N>
class Array1 {
 public:
  constexpr T& operator[](std::int32_t index) { return elements_[Offset(index)]; }
  constexpr const T& operator[](std::int32_t index) const { return elements_[Offset(index)]; }

  /// Elements first to last, both included; empty if last is below first.
  std::span<T> Range(std::int32_t first, std::int32_t last) {
    if (last < first) return {};
    return std::span<T>(elements_).subspan(Offset(first), Offset(last) - Offset(first) + 1);
  }
  std::span<const T> Range(std::int32_t first, std::int32_t last) const {
    return const_cast<Array1&>(*this).Range(first, last);
  }

 private:
  static constexpr std::size_t Offset(std::int32_t index) {
    assert(index >= 1 && index <= N);
    return static_cast<std::size_t>(index - 1);
  }
  std::array<T, static_cast<std::size_t>(N)> elements_{};
};

}  // namespace talven
