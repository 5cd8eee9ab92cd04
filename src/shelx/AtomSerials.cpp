#include "shelx/AtomSerials.h"

#include <algorithm>

namespace talven {
namespace {

constexpr std::int32_t kLastNumber = 99;

char Digit(std::int32_t value) {
  return static_cast<char>('0' + value);
}

/// One digit at the column, or two from there on.
void PutNumber(AtomLabel& label, std::size_t column, std::int32_t number) {
  if (number >= 10) label[column++] = Digit(number / 10);
  label[column] = Digit(number % 10);
}

std::int32_t NextHeld(std::int32_t& count) {
  count = std::min(count + 1, kLastNumber);
  return count;
}

}  // namespace

AtomLabel AtomSerials::Number(AtomLabel label) {
  if (label == AtomLabel("C")) {
    PutNumber(label, 2, NextHeld(CarbonCount));
  } else if (label == AtomLabel("H")) {
    PutNumber(label, 2, NextHeld(HydrogenCount));
  } else if (++OtherCount <= kLastNumber) {
    PutNumber(label, label[2] == ' ' ? 2 : 3, OtherCount);
  } else {
    HydrogenCount = kLastNumber;  // On purpose: not the counter that has run over is held.
  }
  return label;
}

}  // namespace talven
