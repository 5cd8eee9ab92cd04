// The atom rows of a SHELX file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "crystal/CrystalModel.h"
#include "shelx/Instructions.h"
#include "textio/TextInput.h"

namespace talven {

/// True for the instructions of SHELXL, of its forerunners, and of programs that write for it.
bool IsKnownKeyword(const std::string& keyword);

/// Takes the instructions of a file one after another, and adds an atom to a model for each atom row. Instructions
/// that act on the atoms after them (AFIX, MOVE, PART, SPEC) are kept in mind.
class AtomReader {
 public:
  /// The model has cell, symmetry and scatterers already. `free_variables` are those of FVAR.
  AtomReader(const TextInput& file, std::vector<double> free_variables, ModelReading& reading)
      : file_(file), free_variables_(std::move(free_variables)), reading_(reading) {}

  /// Throws FatalIoError for an atom row, or a number in it, that can't be read.
  void Read(const Instruction& instruction);

 private:
  struct Group {
    std::optional<double> occupancy;
    std::optional<double> u;
  };

  [[noreturn]] void Fail(const Instruction& instruction, const std::string& expected, std::string_view found) const;
  void Notice(const Instruction& instruction, const std::string& text);
  double Number(const Instruction& instruction, std::size_t word) const;
  std::optional<double> NumberIfThere(const Instruction& instruction, std::size_t word) const;
  double Decoded(const Instruction& instruction, double coded) const;
  void ReadMove(const Instruction& instruction);
  void ReadAtom(const Instruction& instruction);
  std::size_t ScattererOf(const Instruction& instruction) const;
  void SetPosition(const Instruction& instruction, Atom& atom) const;
  void SetOccupancy(const Instruction& instruction, Atom& atom) const;
  void SetDisplacement(const Instruction& instruction, Atom& atom);

  const TextInput& file_;
  std::vector<double> free_variables_;
  ModelReading& reading_;
  int part_ = 0;
  Group part_group_;
  Group afix_group_;
  double move_sign_ = 1.0;
  Vector3 move_ = {};
  double special_distance_ = 0.2;
  /// Of the last atom whose displacement is not tied to another's.
  std::optional<double> last_u_;
};

}  // namespace talven
