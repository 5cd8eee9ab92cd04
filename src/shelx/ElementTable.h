// The elements of a raw structure model, by the labels of its atoms.
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

  /// Labels in 4 columns each, behind the word SFAC, and their counts likewise behind the word UNIT.
  Record SfacLine() const;
  Record UnitLine() const;

 private:
  /// Position from 1, or 0.
  std::int32_t Find(const AtomLabel& label) const;

  Array1<AtomLabel, kCapacity> Label;
  Array1<std::int32_t, kCapacity> LabelCount{};
  std::int32_t LabelsInUse = 0;
};

}  // namespace talven
