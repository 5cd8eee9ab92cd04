#include "crystal/Symmetry.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

namespace talven {
namespace {

using Rotation = SymmetryOperator::Rotation;
using Translation = std::array<int, 3>;
constexpr int kParts = SymmetryOperator::kParts;

int Wrap(int parts) {
  const int rest = parts % kParts;
  return rest < 0 ? rest + kParts : rest;
}

Translation Sum(const Translation& a, const Translation& b) {
  return {Wrap(a[0] + b[0]), Wrap(a[1] + b[1]), Wrap(a[2] + b[2])};
}

Rotation Negative(Rotation rotation) {
  for (auto& row : rotation)
    for (int& entry : row) entry = -entry;
  return rotation;
}

SymmetryOperator Inverted(const SymmetryOperator& of) {
  return {Negative(of.rotation), {Wrap(-of.translation[0]), Wrap(-of.translation[1]), Wrap(-of.translation[2])}};
}

const Rotation kIdentity = SymmetryOperator{}.rotation;

/// One number for each operator whose rotation has no entry beyond 1.
std::int64_t KeyOf(const SymmetryOperator& of) {
  std::int64_t key = 0;
  for (const auto& row : of.rotation)
    for (const int entry : row) key = 3 * key + entry + 1;
  for (const int parts : of.translation) key = kParts * key + parts;
  return key;
}

bool HasEntryBeyondOne(const Rotation& rotation) {
  for (const auto& row : rotation)
    for (const int entry : row)
      if (entry < -1 || entry > 1) return true;
  return false;
}

using OperatorSet = std::unordered_set<std::int64_t>;

bool IsClosed(const std::vector<SymmetryOperator>& operators, const OperatorSet& set) {
  for (const SymmetryOperator& a : operators)
    for (const SymmetryOperator& b : operators) {
      const SymmetryOperator product = a.After(b);
      if (HasEntryBeyondOne(product.rotation) || !set.contains(KeyOf(product))) return false;
    }
  return true;
}

/// A translation taken from centring vectors brings one operator onto another of the same rotation.
bool DifferByCentring(const SymmetryOperator& a, const SymmetryOperator& b, const std::vector<Translation>& centring) {
  return a.rotation == b.rotation && std::any_of(centring.begin(), centring.end(), [&](const Translation& t) {
           return Sum(a.translation, t) == b.translation;
         });
}

MillerIndex Turned(const MillerIndex& index, const Rotation& rotation) {
  return SymmetryOperator{rotation, {}}.Apply(index);
}

}  // namespace

SymmetryOperator SymmetryOperator::After(const SymmetryOperator& first) const {
  SymmetryOperator result;
  for (std::size_t i = 0; i < 3; ++i) {
    int shift = translation[i];
    for (std::size_t j = 0; j < 3; ++j) {
      result.rotation[i][j] = 0;
      for (std::size_t m = 0; m < 3; ++m) result.rotation[i][j] += rotation[i][m] * first.rotation[m][j];
      shift += rotation[i][j] * first.translation[j];
    }
    result.translation[i] = Wrap(shift);
  }
  return result;
}

Vector3 SymmetryOperator::Apply(const Vector3& position) const {
  Vector3 result = {};
  for (std::size_t i = 0; i < 3; ++i) {
    result[i] = static_cast<double>(translation[i]) / kParts;
    for (std::size_t j = 0; j < 3; ++j) result[i] += rotation[i][j] * position[j];
  }
  return result;
}

int SymmetryOperator::PhaseOf(const MillerIndex& index) const {
  const std::int64_t parts = static_cast<std::int64_t>(index.h) * translation[0] +
                             static_cast<std::int64_t>(index.k) * translation[1] +
                             static_cast<std::int64_t>(index.l) * translation[2];
  return Wrap(static_cast<int>(parts % kParts));
}

std::vector<Translation> CentringOf(char letter) {
  switch (letter) {
    case 'A':
      return {{0, 0, 0}, {0, 12, 12}};
    case 'B':
      return {{0, 0, 0}, {12, 0, 12}};
    case 'C':
      return {{0, 0, 0}, {12, 12, 0}};
    case 'I':
      return {{0, 0, 0}, {12, 12, 12}};
    case 'F':
      return {{0, 0, 0}, {0, 12, 12}, {12, 0, 12}, {12, 12, 0}};
    case 'R':
      return {{0, 0, 0}, {16, 8, 8}, {8, 16, 16}};
    default:
      return {{0, 0, 0}};
  }
}

SymmetryGroup::SymmetryGroup(const std::vector<SymmetryOperator>& operators) {
  OperatorSet set;
  const auto add = [&](const SymmetryOperator& each) {
    if (set.insert(KeyOf(each)).second) operators_.push_back(each);
  };
  add({});
  for (const SymmetryOperator& each : operators) add(each);
  for (const SymmetryOperator& each : operators_)
    if (each.rotation == kIdentity) centring_.push_back(each.translation);
  has_inversion_ = set.contains(KeyOf({Negative(kIdentity), {}}));
  is_group_ = IsClosed(operators_, set);
  if (!is_group_) {
    // What is no group has no cosets either: every operator counts by itself.
    centring_ = {{0, 0, 0}};
    has_inversion_ = false;
  }
  for (const SymmetryOperator& each : operators_) {
    const SymmetryOperator inverted = Inverted(each);
    const bool is_known = std::any_of(reduced_.begin(), reduced_.end(), [&](const SymmetryOperator& other) {
      return DifferByCentring(each, other, centring_) ||
             (has_inversion_ && DifferByCentring(inverted, other, centring_));
    });
    if (!is_known) reduced_.push_back(each);
  }
  for (const SymmetryOperator& each : reduced_) {
    const auto has = [&](const Rotation& rotation) {
      return std::find(laue_.begin(), laue_.end(), rotation) != laue_.end();
    };
    if (!has(each.rotation) && !has(Negative(each.rotation))) laue_.push_back(each.rotation);
  }
}

bool SymmetryGroup::IsAbsent(const MillerIndex& index) const {
  for (const Translation& t : centring_)
    if (SymmetryOperator{.translation = t}.PhaseOf(index) != 0) return true;
  for (const SymmetryOperator& each : reduced_) {
    const MillerIndex turned = each.Apply(index);
    if (turned != index && !(has_inversion_ && turned == -index)) continue;
    if (each.PhaseOf(index) != 0) return true;
  }
  return false;
}

std::vector<MillerIndex> SymmetryGroup::Equivalents(const MillerIndex& index) const {
  std::vector<MillerIndex> result;
  for (const Rotation& rotation : laue_) {
    const MillerIndex turned = Turned(index, rotation);
    result.push_back(turned);
    result.push_back(-turned);
  }
  std::sort(result.begin(), result.end(), std::greater<>());
  result.erase(std::unique(result.begin(), result.end()), result.end());
  return result;
}

std::vector<MillerIndex> SymmetryGroup::EquivalentsInHalf(const MillerIndex& index) const {
  std::vector<MillerIndex> result = Equivalents(index);
  std::erase_if(result, [](const MillerIndex& each) { return each < MillerIndex{}; });
  return result;
}

MillerIndex SymmetryGroup::Representative(const MillerIndex& index) const {
  MillerIndex greatest = index;
  for (const Rotation& rotation : laue_) {
    const MillerIndex turned = Turned(index, rotation);
    greatest = std::max({greatest, turned, -turned});
  }
  return greatest;
}

int SymmetryGroup::MultiplicityIfRepresentative(const MillerIndex& index) const {
  int fixing = 0;
  for (const Rotation& rotation : laue_) {
    const MillerIndex turned = Turned(index, rotation);
    if (turned > index || -turned > index) return 0;
    fixing += turned == index || -turned == index;
  }
  return 2 * static_cast<int>(laue_.size()) / fixing;
}

}  // namespace talven
