#include "textio/Record.h"

#include <algorithm>

namespace talven {

std::span<char> Record::Take(std::size_t count) {
  const std::size_t taken = std::min(count, kCapacity - length_);
  const std::span<char> field(characters_.data() + length_, taken);
  length_ += taken;
  return field;
}

Record& Record::X(std::size_t count) {
  std::ranges::fill(Take(count), ' ');
  return *this;
}

Record& Record::A(std::string_view text) {
  const auto field = Take(text.size());
  std::copy_n(text.begin(), field.size(), field.begin());
  return *this;
}

Record& Record::I(std::int64_t value, std::size_t width) {
  FormatI(Take(width), value);
  return *this;
}

Record& Record::F(double value, std::size_t width, int decimals) {
  FormatF(Take(width), value, decimals);
  return *this;
}

Record& Record::G(double value) {
  std::array<char, 15> field;
  FormatG(field, value);
  return A({field.data(), field.size()});
}

}  // namespace talven
