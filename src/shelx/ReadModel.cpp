#include "shelx/ReadModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "crystal/ScatteringTables.h"
#include "shelx/CheckModel.h"
#include "shelx/Instructions.h"
#include "shelx/ReadAtoms.h"
#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

/// As many operators as the largest of the space groups has.
constexpr std::size_t kOperatorLimit = 192;

/// f' and f'' of a DISP line, for the scatterers that SFAC names so, before or after it.
struct Dispersion {
  std::string label;
  double f_prime = 0.0;
  double f_double_prime = 0.0;
  std::size_t line = 0;
};

/// What stands ahead of the atoms, as it is written.
struct Head {
  int lattice_type = 1;
  std::vector<SymmetryOperator> operators;
  std::vector<Dispersion> dispersions;
  std::vector<double> unit;
  std::size_t unit_line = 0;
  std::size_t first_symmetry_line = 0;
  std::vector<double> free_variables;
  std::size_t cell_line = 0;
};

std::string At(const TextInput& ins, std::size_t line, const std::string& text) {
  return ins.Name() + ", line " + std::to_string(line) + ": " + text;
}

/// The numbers after a keyword. Throws FatalIoError if one is none.
std::vector<double> NumbersOf(const TextInput& ins, const Instruction& instruction) {
  std::vector<double> numbers;
  for (const std::string_view word : instruction.words) {
    const auto value = ReadReal<double>(word);
    if (!value) FailAtLine(ins.Name(), instruction.line, "numbers after " + instruction.keyword, Quote(word));
    numbers.push_back(*value);
  }
  return numbers;
}

void ReadCell(const TextInput& ins, const Instruction& instruction, CrystalModel& model) {
  const std::vector<double> n = NumbersOf(ins, instruction);
  if (n.size() < 7) FailAtLine(ins.Name(), instruction.line, "7 numbers after CELL", std::to_string(n.size()));
  model.wavelength = n[0];
  model.lattice = {n[1], n[2], n[3], n[4], n[5], n[6]};
  if (!(model.wavelength > 0.0))
    FailAtLine(ins.Name(), instruction.line, "a wavelength above 0", Quote(instruction.words[0]));
  if (!model.lattice.IsValid())
    FailAtLine(ins.Name(), instruction.line, "a cell that has a volume", Quote(Trim(instruction.text)));
}

int LatticeTypeOf(const TextInput& ins, const Instruction& instruction) {
  const std::vector<double> n = NumbersOf(ins, instruction);
  const double type = n.empty() ? 1.0 : n[0];
  if (type != std::floor(type) || !(std::fabs(type) >= 1.0 && std::fabs(type) <= 7.0))
    FailAtLine(ins.Name(), instruction.line, "a lattice type from 1 to 7, negative without a centre",
               Quote(instruction.words[0]));
  return static_cast<int>(type);
}

SymmetryOperator OperatorOf(const TextInput& ins, const Instruction& instruction) {
  const auto result = ParseOperator(instruction.text);
  if (!result)
    FailAtLine(ins.Name(), instruction.line, "a symmetry operator as -X, 0.5+Y, 1/2-Z", Quote(Trim(instruction.text)));
  return *result;
}

std::string_view WithoutDollar(std::string_view name) {
  return name.starts_with('$') ? name.substr(1) : name;
}

/// A scatterer whose coefficients stand in the file: a1 b1 ... a4 b4 c f' f'' and three numbers of no use here.
Scatterer WrittenOut(const std::string& label, const std::vector<double>& n) {
  Scatterer result{.label = label, .atomic_number = AtomicNumberOf(label), .form = {}};
  for (std::size_t i = 0; i < 4; ++i) {
    result.form.a[i] = n[2 * i];
    result.form.b[i] = n[2 * i + 1];
  }
  result.form.c = n[8];
  result.f_prime = n[9];
  result.f_double_prime = n[10];
  result.has_own_dispersion = true;
  return result;
}

/// Names of elements in any mixture with scatterers written out.
void ReadScatterers(const TextInput& ins, const Instruction& instruction, CrystalModel& model) {
  constexpr std::size_t kNumbers = 14;
  const auto& words = instruction.words;
  for (std::size_t i = 0; i < words.size();) {
    const std::string label(WithoutDollar(words[i++]));
    std::vector<double> numbers;
    for (; i < words.size() && numbers.size() < kNumbers; ++i) {
      const auto number = ReadReal<double>(words[i]);
      if (!number) break;
      numbers.push_back(*number);
    }
    if (numbers.empty()) {
      auto scatterer = FindScatterer(label);
      if (!scatterer) FailAtLine(ins.Name(), instruction.line, "the symbol of an element", Quote(label));
      model.scatterers.push_back(*std::move(scatterer));
      continue;
    }
    if (numbers.size() < kNumbers)
      FailAtLine(ins.Name(), instruction.line, "14 numbers after " + label, std::to_string(numbers.size()));
    model.scatterers.push_back(WrittenOut(label, numbers));
  }
}

Dispersion DispersionOf(const TextInput& ins, const Instruction& instruction) {
  const auto& words = instruction.words;
  const auto f_prime = words.size() > 1 ? ReadReal<double>(words[1]) : std::nullopt;
  const auto f_double_prime = words.size() > 2 ? ReadReal<double>(words[2]) : std::nullopt;
  if (!f_prime || !f_double_prime)
    FailAtLine(ins.Name(), instruction.line, "an element, f' and f'' after DISP", Quote(Trim(instruction.text)));
  return {ToUpper(WithoutDollar(words[0])), *f_prime, *f_double_prime, instruction.line};
}

void ApplyDispersion(const TextInput& ins, const Dispersion& dispersion, ModelReading& reading) {
  bool is_found = false;
  for (Scatterer& scatterer : reading.model.scatterers) {
    if (ToUpper(scatterer.label) != dispersion.label) continue;
    scatterer.f_prime = dispersion.f_prime;
    scatterer.f_double_prime = dispersion.f_double_prime;
    scatterer.has_own_dispersion = true;
    is_found = true;
  }
  if (!is_found)
    reading.notices.push_back(At(ins, dispersion.line, "DISP names " + dispersion.label + ", SFAC does not"));
}

/// What a whole run of a refinement program would heed, and a sum over atoms does not.
void NoticeUnheeded(const TextInput& ins, const Instruction& instruction, ModelReading& reading) {
  const std::string& keyword = instruction.keyword;
  std::string text;
  if (keyword == "SWAT" || keyword == "ABIN")
    text = keyword + " is passed over: the calculated values are those of the atoms alone";
  else if (keyword == "NEUT")
    text = "NEUT is passed over: the scattering factors are those for X-rays";
  else if (keyword == "+")
    text = "the file " + Quote(Trim(instruction.text)) + " is not read";
  else if (!IsKnownKeyword(keyword) && instruction.words.empty())
    text = Quote(keyword) + " is passed over: it is no instruction";
  if (!text.empty()) reading.notices.push_back(At(ins, instruction.line, text));
}

void ReadHeadInstruction(const TextInput& ins, const Instruction& each, Head& head, ModelReading& reading) {
  CrystalModel& model = reading.model;
  if (each.keyword == "TITL") {
    if (model.title.empty()) model.title = Trim(each.text);
  } else if (each.keyword == "CELL") {
    if (head.cell_line != 0) {
      reading.notices.push_back(At(ins, each.line, "a second CELL is passed over"));
      return;
    }
    ReadCell(ins, each, model);
    head.cell_line = each.line;
  } else if (each.keyword == "LATT") {
    head.lattice_type = LatticeTypeOf(ins, each);
  } else if (each.keyword == "SYMM") {
    if (head.first_symmetry_line == 0) head.first_symmetry_line = each.line;
    if (head.operators.size() == kOperatorLimit)
      FailAtLine(ins.Name(), each.line, "at most " + std::to_string(kOperatorLimit) + " SYMM lines", "more");
    head.operators.push_back(OperatorOf(ins, each));
  } else if (each.keyword == "SFAC") {
    ReadScatterers(ins, each, model);
  } else if (each.keyword == "DISP") {
    head.dispersions.push_back(DispersionOf(ins, each));
  } else if (each.keyword == "UNIT") {
    head.unit = NumbersOf(ins, each);
    head.unit_line = each.line;
  } else if (each.keyword == "FVAR") {
    for (const double value : NumbersOf(ins, each)) head.free_variables.push_back(value);
  } else {
    NoticeUnheeded(ins, each, reading);
  }
}

Head ReadHead(TextInput& ins, ModelReading& reading) {
  Head head;
  InstructionReader instructions(ins);
  while (const Instruction* each = instructions.Next()) ReadHeadInstruction(ins, *each, head, reading);
  for (const std::size_t line : instructions.UnfinishedLines())
    reading.notices.push_back(At(ins, line, "\"=\" says that the line goes on, and it does not"));
  if (head.cell_line == 0) FailAtLine(ins.Name(), ins.LineNumber(), "a CELL line", "none up to here");
  return head;
}

/// The operators of LATT and SYMM, multiplied out with each other.
SymmetryGroup GroupOf(const Head& head) {
  constexpr std::string_view kLetters = "PIRFABC";
  const auto centring = CentringOf(kLetters[static_cast<std::size_t>(std::abs(head.lattice_type)) - 1]);
  const SymmetryOperator inversion{{{{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}}, {}};
  std::vector<SymmetryOperator> listed = {{}};
  listed.insert(listed.end(), head.operators.begin(), head.operators.end());
  std::vector<SymmetryOperator> all;
  for (const SymmetryOperator& each : listed)
    for (const auto& translation : centring) {
      const SymmetryOperator moved = SymmetryOperator{.translation = translation}.After(each);
      all.push_back(moved);
      if (head.lattice_type > 0) all.push_back(inversion.After(moved));
    }
  return SymmetryGroup(all);
}

}  // namespace

ModelReading ReadModel(TextInput& ins) {
  ModelReading reading;
  ins.Rewind();
  Head head = ReadHead(ins, reading);
  CrystalModel& model = reading.model;
  model.symmetry = GroupOf(head);
  for (const Dispersion& each : head.dispersions) ApplyDispersion(ins, each, reading);
  SetWavelength(model, model.wavelength);
  ins.Rewind();
  InstructionReader instructions(ins);
  AtomReader atoms(ins, std::move(head.free_variables), reading);
  while (const Instruction* each = instructions.Next()) atoms.Read(*each);
  if (!model.symmetry.IsGroup())
    reading.notices.push_back(At(ins, head.first_symmetry_line, "the operators of LATT and SYMM do not form a group"));
  for (const ModelFault& fault : CheckModel(model, head.unit))
    reading.notices.push_back(At(ins, fault.is_of_unit ? head.unit_line : head.cell_line, fault.text));
  return reading;
}

}  // namespace talven
