#include "screening/NelderMead.h"

#include <algorithm>

namespace talven {
namespace {

struct Corner {
  std::vector<double> parameters;
  double value = 0.0;
};

class Simplex {
 public:
  Simplex(const std::function<double(const std::vector<double>&)>& value, const std::vector<double>& start,
          const std::vector<double>& steps)
      : value_(value) {
    corners_.push_back(Evaluated(start));
    for (std::size_t i = 0; i < start.size(); ++i) {
      std::vector<double> moved = start;
      moved[i] += steps[i];
      corners_.push_back(Evaluated(moved));
    }
    Sort();
  }

  int Evaluations() const { return evaluations_; }
  const Corner& Best() const { return corners_.front(); }
  double Spread() const { return corners_.front().value - corners_.back().value; }

  /// One reflection, expansion, contraction or shrinking.
  void Move() {
    const Corner& worst = corners_.back();
    const Corner reflected = Evaluated(AlongWorst(-1.0));
    if (reflected.value > Best().value) {
      const Corner expanded = Evaluated(AlongWorst(-2.0));
      Replace(expanded.value > reflected.value ? expanded : reflected);
    } else if (reflected.value > corners_[corners_.size() - 2].value) {
      Replace(reflected);
    } else {
      const Corner contracted = Evaluated(AlongWorst(reflected.value > worst.value ? -0.5 : 0.5));
      if (contracted.value > std::max(reflected.value, worst.value)) {
        Replace(contracted);
      } else {
        Shrink();
      }
    }
  }

 private:
  Corner Evaluated(std::vector<double> parameters) {
    ++evaluations_;
    const double value = value_(parameters);
    return {std::move(parameters), value};
  }

  /// The point on the line through the worst corner and the middle of the others: 1 is the worst corner, 0 the middle.
  std::vector<double> AlongWorst(double place) const {
    const std::size_t count = corners_.size() - 1;
    std::vector<double> point(corners_.back().parameters.size());
    for (std::size_t i = 0; i < point.size(); ++i) {
      double middle = 0.0;
      for (std::size_t corner = 0; corner < count; ++corner) middle += corners_[corner].parameters[i];
      middle /= static_cast<double>(count);
      point[i] = middle + place * (corners_.back().parameters[i] - middle);
    }
    return point;
  }

  void Replace(Corner corner) {
    corners_.back() = std::move(corner);
    Sort();
  }

  void Shrink() {
    for (std::size_t corner = 1; corner < corners_.size(); ++corner) {
      std::vector<double> point = corners_[corner].parameters;
      for (std::size_t i = 0; i < point.size(); ++i) point[i] = 0.5 * (point[i] + Best().parameters[i]);
      corners_[corner] = Evaluated(std::move(point));
    }
    Sort();
  }

  void Sort() { std::ranges::stable_sort(corners_, std::ranges::greater(), &Corner::value); }

  const std::function<double(const std::vector<double>&)>& value_;
  std::vector<Corner> corners_;
  int evaluations_ = 0;
};

}  // namespace

SimplexResult MaximiseBySimplex(const std::function<double(const std::vector<double>&)>& value,
                                const std::vector<double>& start, const std::vector<double>& steps, int evaluations,
                                double tolerance) {
  Simplex simplex(value, start, steps);
  while (simplex.Evaluations() < evaluations && simplex.Spread() > tolerance) simplex.Move();
  return {simplex.Best().parameters, simplex.Best().value, simplex.Evaluations()};
}

}  // namespace talven
