#include "shelx/AtomLabels.h"

#include <algorithm>

#include "textio/LetterCase.h"

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

AtomLabel FoldLabel(const Text80& atom_line) {
  AtomLabel label = atom_line.First(4);
  for (std::size_t column = 1; column <= 4; ++column) {
    char& c = label[column];
    c = c >= '0' && c <= '9' ? ' ' : UpperCase(c);
  }
  return label;
}

std::int32_t ElementTable::Find(const AtomLabel& label) const {
  for (std::int32_t i = 1; i <= LabelsInUse; ++i)
    if (Label[i] == label) return i;
  return 0;
}

bool ElementTable::Count(const AtomLabel& label) {
  std::int32_t position = Find(label);
  if (position == 0) {
    if (LabelsInUse == kCapacity) return false;
    position = ++LabelsInUse;
    Label[position] = label;
  }
  ++LabelCount[position];
  return true;
}

std::int32_t ElementTable::PositionOf(const AtomLabel& label) const {
  const std::int32_t position = Find(label);
  return position == 0 ? 1 : position;
}

Record ElementTable::SfacLine() const {
  Record line;
  line.A("SFAC ");
  for (std::int32_t i = 1; i <= LabelsInUse; ++i) line.A(Label[i].View());
  return line;
}

Record ElementTable::UnitLine() const {
  Record line;
  line.A("UNIT ");
  for (std::int32_t i = 1; i <= LabelsInUse; ++i) line.I(LabelCount[i], 4);
  return line;
}

AtomLabel AtomSerials::Number(AtomLabel label) {
  if (label == AtomLabel("C")) {
    PutNumber(label, 2, NextHeld(CarbonCount));
  } else if (label == AtomLabel("H")) {
    PutNumber(label, 2, NextHeld(HydrogenCount));
  } else if (++OtherCount <= kLastNumber) {
    PutNumber(label, label[2] == ' ' ? 2 : 3, OtherCount);
  } else {
    HydrogenCount = kLastNumber;  // On purpose the number is held, and not the counter that has run over.
  }
  return label;
}

}  // namespace talven
