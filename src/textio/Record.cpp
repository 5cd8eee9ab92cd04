#include "textio/Record.h"

#include <algorithm>
#include <cstring>

namespace talven {

std::span<char> Record::TakeRest() {
  const std::span<char> rest(characters_.data() + length_, kCapacity - length_);
  length_ = kCapacity;
  return rest;
}

Record& Record::X(std::size_t count) {
  constexpr char kBlanks[] = "        ";
  if (count <= 8 && length_ + 8 <= kCapacity) {
    // Eight at once cost less than a loop; the next field takes the place of those that are too many.
    std::memcpy(characters_.data() + length_, kBlanks, 8);
    length_ += count;
  } else {
    std::ranges::fill(Take(count), ' ');
  }
  return *this;
}

Record& Record::A(std::string_view text) {
  const auto field = Take(text.size());
  std::copy_n(text.begin(), field.size(), field.begin());
  return *this;
}

Record& Record::G(double value) {
  if (length_ + 15 > kCapacity) return X(15);
  FormatG(Take(15).first<15>(), value);
  return *this;
}

}  // namespace talven
