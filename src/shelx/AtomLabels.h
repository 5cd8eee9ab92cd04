// The labels of the atoms of a raw structure model: the elements that they tell, and the numbers that they get.
#pragma once

#include <cstdint>

#include "textio/Array1.h"
#include "textio/FixedText.h"
#include "textio/Record.h"

namespace talven {

using AtomLabel = FixedText<4>;

/// The label of an atom line without its number: letters in upper case, digits blanked, all else as it stands.
AtomLabel FoldLabel(const Text80& atom_line);

/// The different labels in the order in which they came, each with the number of its atoms in the asymmetric unit.
class ElementTable {
 public:
  static constexpr std::int32_t kCapacity = 20;

  /// Counts one atom. False if its label is one too many for the table.
  bool Count(const AtomLabel& label);
  /// Position of a label from 1; 1 for a label that isn't there.
  std::int32_t PositionOf(const AtomLabel& label) const;

  /// Labels in 4 columns each, after the word SFAC, and their counts likewise after the word UNIT.
  Record SfacLine() const;
  Record UnitLine() const;

 private:
  /// Position from 1, or 0.
  std::int32_t Find(const AtomLabel& label) const;

  Array1<AtomLabel, kCapacity> Label;
  Array1<std::int32_t, kCapacity> LabelCount{};
  std::int32_t LabelsInUse = 0;
};

/// Carbon and hydrogen count for themselves, all other labels together.
class AtomSerials {
 public:
  /// Puts the next number into a folded label: from column 2, from column 3 where that one is taken by a label other
  /// than C or H. From the ninety-ninth on every carbon is number 99, and every hydrogen likewise; of the others those
  /// after the ninety-ninth get no number.
  AtomLabel Number(AtomLabel label);

 private:
  std::int32_t CarbonCount = 0;
  std::int32_t HydrogenCount = 0;
  std::int32_t OtherCount = 0;
};

}  // namespace talven
