#include "shelx/CheckModel.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace talven {
namespace {

constexpr double kNear = 0.3;
constexpr double kFullSite = 1.1;
/// Beyond it atoms are not compared with each other: the copies of all would fill the memory.
constexpr std::size_t kCopyLimit = 300'000;

/// For each scatterer: all atoms of a cell, those of the asymmetric unit, or the number of atom rows.
enum class Content { kCell, kAsymmetricUnit, kRows };

std::vector<double> Contents(const CrystalModel& model, Content kind) {
  const auto operators = static_cast<double>(model.symmetry.Operators().size());
  std::vector<double> sums(model.scatterers.size());
  for (const Atom& atom : model.atoms) {
    const double share = kind == Content::kRows ? 1.0 : atom.occupancy;
    sums[atom.scatterer] += kind == Content::kCell ? operators * share : share;
  }
  return sums;
}

bool Agree(std::span<const double> unit, const std::vector<double>& sums) {
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const double told = i < unit.size() ? unit[i] : 0.0;
    if (!(std::fabs(told - sums[i]) <= std::max(0.5, 0.02 * sums[i]))) return false;
  }
  return true;
}

std::string Number(double value) {
  const auto hundredths = std::llround(100.0 * std::clamp(value, -1e12, 1e12));
  std::string text = std::to_string(hundredths / 100);
  if (hundredths % 100 != 0) {
    const std::string decimals = std::to_string(std::llabs(hundredths % 100));
    text += (decimals.size() == 1 ? ".0" : ".") + decimals;
  }
  return text;
}

std::string Formula(const CrystalModel& model, const std::vector<double>& sums) {
  std::string text;
  for (std::size_t i = 0; i < sums.size(); ++i)
    text += (i == 0 ? "" : " ") + model.scatterers[i].label + " " + Number(sums[i]);
  return text;
}

/// The copies of all atoms in one cell, found by place.
class CellContents {
 public:
  explicit CellContents(const CrystalModel& model) : metric_(model.lattice.DirectMetric()) {
    const Metric reciprocal = model.lattice.ReciprocalMetric();
    for (std::size_t i = 0; i < boxes_.size(); ++i)
      // The smaller of both first: a cell may be as long as a number can tell.
      boxes_[i] = static_cast<std::int64_t>(std::max(1.0, std::min(1000.0, 1.0 / (std::sqrt(reciprocal[i]) * kNear))));
    for (const Atom& atom : model.atoms)
      for (const SymmetryOperator& each : model.symmetry.Operators()) {
        const Vector3 position = each.Apply(atom.position);
        boxes_of_copies_.emplace(KeyOf(BoxOf(position)), Copy{position, &atom});
      }
  }

  /// The weight of all that lies near an atom, itself included; `other` takes another atom that is there.
  double WeightAt(const Atom& atom, const Atom*& other) const {
    double sum = 0.0;
    const Box box = BoxOf(atom.position);
    for (const std::int64_t u : NeighboursOf(box[0], 0))
      for (const std::int64_t v : NeighboursOf(box[1], 1))
        for (const std::int64_t w : NeighboursOf(box[2], 2)) {
          const auto [begin, end] = boxes_of_copies_.equal_range(KeyOf({u, v, w}));
          for (auto each = begin; each != end; ++each) {
            if (!IsNear(each->second.position, atom.position)) continue;
            sum += each->second.atom->occupancy;
            if (each->second.atom != &atom && (other == nullptr || each->second.atom < other))
              other = each->second.atom;
          }
        }
    return sum;
  }

 private:
  using Box = std::array<std::int64_t, 3>;
  struct Copy {
    Vector3 position = {};
    const Atom* atom = nullptr;
  };

  Box BoxOf(const Vector3& position) const {
    Box box = {};
    for (std::size_t i = 0; i < box.size(); ++i) {
      const double inside = position[i] - std::floor(position[i]);
      box[i] = std::min(static_cast<std::int64_t>(inside * static_cast<double>(boxes_[i])), boxes_[i] - 1);
    }
    return box;
  }
  static std::int64_t KeyOf(const Box& box) { return (box[0] * 1000 + box[1]) * 1000 + box[2]; }

  /// A box and those on both sides, each once.
  std::vector<std::int64_t> NeighboursOf(std::int64_t box, std::size_t axis) const {
    const std::int64_t count = boxes_[axis];
    std::vector<std::int64_t> result = {box, (box + 1) % count, (box + count - 1) % count};
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
  }

  bool IsNear(const Vector3& a, const Vector3& b) const {
    Vector3 d = {};
    for (std::size_t i = 0; i < d.size(); ++i) d[i] = a[i] - b[i] - std::round(a[i] - b[i]);
    return SquaredLength(metric_, d[0], d[1], d[2]) < kNear * kNear;
  }

  Metric metric_;
  Box boxes_ = {};
  std::unordered_multimap<std::int64_t, Copy> boxes_of_copies_;
};

void CheckSites(const CrystalModel& model, std::vector<ModelFault>& faults) {
  if (model.atoms.size() * model.symmetry.Operators().size() > kCopyLimit) return;
  const CellContents contents(model);
  std::size_t count = 0;
  std::string first;
  for (const Atom& atom : model.atoms) {
    const Atom* other = nullptr;
    if (!(contents.WeightAt(atom, other) > kFullSite)) continue;
    if (count++ == 0) first = atom.label + " on " + (other == nullptr ? "a copy of itself" : other->label);
  }
  if (count == 0) return;
  faults.push_back({.text = std::to_string(count) + (count == 1 ? " atom lies" : " atoms lie") +
                            " on top of others, the first is " + first});
}

}  // namespace

std::vector<ModelFault> CheckModel(const CrystalModel& model, std::span<const double> unit) {
  std::vector<ModelFault> faults;
  if (MetricMisfit(model.lattice, model.symmetry) > 0.01)
    faults.push_back({.text = "the cell does not have the symmetry of its operators"});
  if (model.atoms.empty()) return faults;
  const std::vector<double> cell = Contents(model, Content::kCell);
  if (!unit.empty() && !Agree(unit, cell) && !Agree(unit, Contents(model, Content::kAsymmetricUnit)) &&
      !Agree(unit, Contents(model, Content::kRows)))
    faults.push_back(
        {.text = "UNIT is not what the atoms give for a cell: " + Formula(model, cell), .is_of_unit = true});
  CheckSites(model, faults);
  return faults;
}

}  // namespace talven
