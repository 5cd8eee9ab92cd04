#include "shelx/ReadAtoms.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

#include "shelx/CodedNumber.h"
#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::size_t kAtomLimit = 50'000;
constexpr double kUsualDisplacement = 0.05;

/// By the alphabet. HOPE to TREF are those of SHELX-76, SHELXS and SHELXD that stand in old or unfinished files.
constexpr std::string_view kKeywords[] = {
    "+",    "ABIN", "ACTA", "AFIX", "ANIS", "ANSC", "ANSR", "BASF", "BEDE", "BIND", "BLOC", "BOND", "BUMP", "CELL",
    "CGLS", "CHIV", "CONF", "CONN", "DAMP", "DANG", "DEFS", "DELU", "DFIX", "DISP", "EADP", "END",  "EQIV", "ESEL",
    "EXTI", "EXYZ", "FEND", "FIND", "FLAT", "FMAP", "FRAG", "FREE", "FVAR", "GRID", "HFIX", "HKLF", "HOPE", "HTAB",
    "INIT", "ISOR", "L.S.", "LATT", "LAUE", "LIST", "LONE", "MERG", "MIND", "MOLE", "MORE", "MOVE", "MPLA", "NCSY",
    "NEUT", "NTRY", "OMIT", "PART", "PATS", "PATT", "PHAN", "PLAN", "PRIG", "REM",  "RESI", "RIGU", "RTAB", "SADI",
    "SAME", "SEED", "SFAC", "SHEL", "SIMU", "SIZE", "SPEC", "SPIN", "STIR", "SUMP", "SWAT", "SYMM", "TEMP", "TEXP",
    "TIME", "TITL", "TREF", "TWIN", "TWST", "UNIT", "VECT", "WEED", "WGHT", "WIGL", "WPDB", "XNPD", "ZERR"};

/// Label, scatterer and position in the words after the label; an atom also where one of them is spoilt.
bool LooksLikeAtom(const Instruction& instruction) {
  const auto& words = instruction.words;
  if (words.empty()) return false;
  const auto is_number = [](std::string_view word) { return ReadReal<double>(word).has_value(); };
  const auto end = words.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(words.size(), 4));
  return is_number(words.front()) || std::count_if(words.begin(), end, is_number) >= 3;
}

bool IsPeak(const std::string& keyword) {
  return keyword.size() > 1 && keyword.front() == 'Q' &&
         std::all_of(keyword.begin() + 1, keyword.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

bool IsUnset(double occupancy) {
  return std::fabs(occupancy - 11.0) < 1e-6 || std::fabs(occupancy - 1.0) < 1e-6;
}

}  // namespace

bool IsKnownKeyword(const std::string& keyword) {
  return std::find(std::begin(kKeywords), std::end(kKeywords), keyword) != std::end(kKeywords);
}

void AtomReader::Fail(const Instruction& instruction, const std::string& expected, std::string_view found) const {
  FailAtLine(file_.Name(), instruction.line, expected, found);
}

void AtomReader::Notice(const Instruction& instruction, const std::string& text) {
  reading_.notices.push_back(file_.Name() + ", line " + std::to_string(instruction.line) + ": " + text);
}

double AtomReader::Number(const Instruction& instruction, std::size_t word) const {
  const auto value = ReadReal<double>(instruction.words[word]);
  if (!value) Fail(instruction, "a number", Quote(instruction.words[word]));
  return *value;
}

std::optional<double> AtomReader::NumberIfThere(const Instruction& instruction, std::size_t word) const {
  if (word >= instruction.words.size()) return std::nullopt;
  return Number(instruction, word);
}

double AtomReader::Decoded(const Instruction& instruction, double coded) const {
  const auto value = DecodeNumber(coded, free_variables_);
  if (value) return *value;
  const std::string found = "number " + std::to_string(std::lround(std::fabs(std::min(coded, 1e9)) / 10.0));
  if (free_variables_.empty()) Fail(instruction, "an FVAR instruction with the free variable that is used", found);
  Fail(instruction, "a free variable from 2 to " + std::to_string(free_variables_.size()), found);
}

void AtomReader::ReadMove(const Instruction& instruction) {
  for (std::size_t i = 0; i < move_.size(); ++i) move_[i] = NumberIfThere(instruction, i).value_or(0.0);
  move_sign_ = NumberIfThere(instruction, 3).value_or(1.0) < 0.0 ? -1.0 : 1.0;
}

void AtomReader::Read(const Instruction& instruction) {
  const std::string& keyword = instruction.keyword;
  if (keyword == "AFIX") {
    afix_group_ = {NumberIfThere(instruction, 2), NumberIfThere(instruction, 3)};
  } else if (keyword == "PART") {
    part_ = static_cast<int>(std::clamp(NumberIfThere(instruction, 0).value_or(0.0), -1e6, 1e6));
    part_group_ = {NumberIfThere(instruction, 1), std::nullopt};
  } else if (keyword == "MOVE") {
    ReadMove(instruction);
  } else if (keyword == "SPEC") {
    special_distance_ = NumberIfThere(instruction, 0).value_or(0.2);
  } else if (!IsKnownKeyword(keyword) && !IsPeak(keyword) && LooksLikeAtom(instruction)) {
    ReadAtom(instruction);
  }
}

std::size_t AtomReader::ScattererOf(const Instruction& instruction) const {
  const double number = Number(instruction, 0);
  const std::size_t count = reading_.model.scatterers.size();
  if (count == 0) Fail(instruction, "an SFAC instruction before the atoms", "none");
  if (!(number >= 1.0 && number <= static_cast<double>(count)) || number != std::floor(number))
    Fail(instruction, "the number of an element of SFAC from 1 to " + std::to_string(count),
         Quote(instruction.words[0]));
  return static_cast<std::size_t>(number) - 1;
}

void AtomReader::SetPosition(const Instruction& instruction, Atom& atom) const {
  for (std::size_t i = 0; i < atom.position.size(); ++i) {
    const double value = Decoded(instruction, Number(instruction, i + 1));
    atom.position[i] = move_[i] + move_sign_ * value;
    if (!(std::fabs(atom.position[i]) < 1000.0)) Fail(instruction, "a coordinate", Quote(instruction.words[i + 1]));
  }
}

void AtomReader::SetOccupancy(const Instruction& instruction, Atom& atom) const {
  double coded = NumberIfThere(instruction, 4).value_or(11.0);
  if (part_group_.occupancy) coded = *part_group_.occupancy;
  if (afix_group_.occupancy) coded = *afix_group_.occupancy;
  atom.occupancy = Decoded(instruction, coded);
  if (!IsUnset(coded) || part_ < 0 || special_distance_ <= 0.0) return;
  const Site site = FindSite(atom.position, reading_.model.symmetry, reading_.model.lattice, special_distance_);
  atom.position = site.position;
  atom.occupancy /= site.multiplicity;
}

void AtomReader::SetDisplacement(const Instruction& instruction, Atom& atom) {
  constexpr std::size_t kFirst = 5;
  const std::size_t given = instruction.words.size() > kFirst ? instruction.words.size() - kFirst : 0;
  // One number, or two: a peak height may follow it.
  if (given > 2 && given != atom.u.size()) Fail(instruction, "1 or 6 displacement values", std::to_string(given));
  if (given == atom.u.size() && !afix_group_.u) {
    for (std::size_t i = 0; i < given; ++i) atom.u[i] = Decoded(instruction, Number(instruction, kFirst + i));
    atom.is_anisotropic = true;
    atom.u_isotropic = EquivalentIsotropic(atom.u, reading_.model.lattice);
    last_u_ = atom.u_isotropic;
    return;
  }
  const double coded = afix_group_.u.value_or(NumberIfThere(instruction, kFirst).value_or(kUsualDisplacement));
  if (coded >= -5.0 && coded <= -0.5) {
    if (!last_u_) Notice(instruction, atom.label + " takes its U from the atom before it, and there is none");
    atom.u_isotropic = last_u_ ? -coded * *last_u_ : kUsualDisplacement;
    return;
  }
  atom.u_isotropic = Decoded(instruction, coded);
  last_u_ = atom.u_isotropic;
}

void AtomReader::ReadAtom(const Instruction& instruction) {
  auto& atoms = reading_.model.atoms;
  if (atoms.size() == kAtomLimit) Fail(instruction, "at most " + std::to_string(kAtomLimit) + " atoms", "more");
  if (instruction.words.size() < 4)
    Fail(instruction, "the number of an element and x, y, z after " + instruction.keyword,
         std::to_string(instruction.words.size()) + " numbers");
  Atom atom{.label = instruction.keyword, .scatterer = ScattererOf(instruction), .part = part_};
  SetPosition(instruction, atom);
  SetOccupancy(instruction, atom);
  SetDisplacement(instruction, atom);
  atoms.push_back(std::move(atom));
}

}  // namespace talven
