#include "screening/ScoreCandidate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>
#include <vector>

#include "screening/NelderMead.h"

namespace talven {
namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
/// Stage 1: steps of 0.25 % to either side.
constexpr double kScaleStep = 0.0025;
constexpr int kScaleSteps = 16;
/// Stage 2: how far parameters go, and the first steps of the simplex.
constexpr double kLongestChange = 0.05;
constexpr double kWidestChange = 2.9;
constexpr double kLargestLogR = 0.7;
constexpr double kFirstLengthStep = 0.008;
constexpr double kFirstAngleStep = 0.7;
constexpr double kFirstLogRStep = 0.3;
constexpr int kEvaluations = 400;
constexpr double kTolerance = 1e-7;
/// Below any score.
constexpr double kForbidden = -2.0;

/// (1 + cos^2 2theta)/(sin^2 theta cos theta).
double LorentzPolarisation(double squared_sine) {
  const double cosine = 1.0 - 2.0 * squared_sine;
  return (1.0 + cosine * cosine) / (squared_sine * std::sqrt(1.0 - squared_sine));
}

double SquaredSineAt(double two_theta) {
  const double sine = std::sin(0.5 * kRadians * two_theta);
  return sine * sine;
}

/// The lines of one candidate, moved about. They are kept in the order of the last cell, which the next one hardly
/// changes.
class MovingLines {
 public:
  MovingLines(const ScreenTarget& target, const Candidate& candidate)
      : candidate_(candidate),
        lowest_(SquaredSineAt(target.range.first)),
        highest_(SquaredSineAt(target.range.last)),
        quarter_(0.25 * target.range.wavelength * target.range.wavelength),
        order_(candidate.strengths.size()),
        squared_sines_(candidate.strengths.size()) {
    std::iota(order_.begin(), order_.end(), std::size_t{0});
  }

  /// All lengths times `scale`.
  const LineList& AtScale(double scale) {
    const double factor = quarter_ / (scale * scale);
    for (std::size_t i = 0; i < order_.size(); ++i) squared_sines_[i] = factor * candidate_.inverse_squares[order_[i]];
    return Place(nullptr);
  }

  const LineList& At(const Lattice& lattice, const Texture* texture) {
    Metric metric = lattice.ReciprocalMetric();
    for (double& component : metric) component *= quarter_;
    for (std::size_t i = 0; i < order_.size(); ++i) {
      const MillerIndex& index = candidate_.indices[order_[i]];
      squared_sines_[i] = SquaredLength(metric, index.h, index.k, index.l);
    }
    return Place(texture);
  }

 private:
  const LineList& Place(const Texture* texture) {
    SortByAngle();
    lines_.two_theta.clear();
    lines_.intensities.clear();
    for (std::size_t i = 0; i < order_.size(); ++i) {
      const double squared_sine = squared_sines_[i];
      if (!(squared_sine >= lowest_ && squared_sine <= highest_)) continue;
      double intensity = candidate_.strengths[order_[i]];
      if (candidate_.cell) intensity *= LorentzPolarisation(squared_sine);
      if (texture != nullptr) intensity *= candidate_.texture[texture->axis].Factor(order_[i], texture->r);
      lines_.two_theta.push_back(2.0 / kRadians * std::asin(std::sqrt(squared_sine)));
      lines_.intensities.push_back(intensity);
    }
    return lines_;
  }

  void SortByAngle() {
    for (std::size_t i = 1; i < order_.size(); ++i) {
      const double squared_sine = squared_sines_[i];
      const std::size_t line = order_[i];
      std::size_t j = i;
      for (; j > 0 && squared_sines_[j - 1] > squared_sine; --j) {
        squared_sines_[j] = squared_sines_[j - 1];
        order_[j] = order_[j - 1];
      }
      squared_sines_[j] = squared_sine;
      order_[j] = line;
    }
  }

  const Candidate& candidate_;
  double lowest_;
  double highest_;
  double quarter_;
  std::vector<std::size_t> order_;
  std::vector<double> squared_sines_;
  LineList lines_;
};

double ScoreOf(const CorrelationTarget& target, const LineList& lines) {
  return target.Score(lines.two_theta, lines.intensities);
}

/// What the simplex varies: the cell or one scale, and ln r.
struct Search {
  std::vector<double> start;
  std::vector<double> steps;
  std::vector<double> limits;

  void Add(double first, double step, double limit) {
    start.push_back(first);
    steps.push_back(step);
    limits.push_back(limit);
  }
  bool Allows(const std::vector<double>& parameters) const {
    for (std::size_t i = 0; i < parameters.size(); ++i)
      if (!(std::fabs(parameters[i]) <= limits[i])) return false;
    return true;
  }
};

Search SearchFor(const Candidate& candidate, double scale, bool has_texture) {
  Search search;
  const std::size_t lengths = candidate.cell ? candidate.cell->LengthCount() : 1;
  const std::size_t parameters = candidate.cell ? candidate.cell->ParameterCount() : 1;
  for (std::size_t i = 0; i < lengths; ++i) search.Add(scale - 1.0, kFirstLengthStep, kLongestChange);
  for (std::size_t i = lengths; i < parameters; ++i) search.Add(0.0, kFirstAngleStep, kWidestChange);
  if (has_texture) search.Add(0.0, kFirstLogRStep, kLargestLogR);
  return search;
}

/// The better of two simplices, the second with its first steps turned round.
template <typename Function>
SimplexResult MaximiseTwice(const Function& value, const Search& search) {
  SimplexResult best = MaximiseBySimplex(value, search.start, search.steps, kEvaluations, kTolerance);
  std::vector<double> turned = search.steps;
  for (double& step : turned) step = -step;
  SimplexResult other = MaximiseBySimplex(value, search.start, turned, kEvaluations, kTolerance);
  return other.value > best.value ? other : best;
}

FittedScore FitScale(const ScreenTarget& target, MovingLines& lines, const Search& search) {
  const SimplexResult best = MaximiseTwice(
      [&](const std::vector<double>& parameters) {
        if (!search.Allows(parameters)) return kForbidden;
        return ScoreOf(target.fine, lines.AtScale(1.0 + parameters[0]));
      },
      search);
  return {best.value, std::nullopt, 1.0 + best.parameters[0], std::nullopt};
}

FittedScore FitCell(const ScreenTarget& target, const FreeCell& cell, MovingLines& lines, const Search& search,
                    std::optional<std::size_t> axis) {
  const auto texture_at = [&](const std::vector<double>& parameters) -> std::optional<Texture> {
    if (!axis) return std::nullopt;
    return Texture{*axis, std::exp(parameters.back())};
  };
  const auto lattice_at = [&](const std::vector<double>& parameters) {
    return cell.At(std::span(parameters).first(cell.ParameterCount()));
  };
  const SimplexResult best = MaximiseTwice(
      [&](const std::vector<double>& parameters) {
        if (!search.Allows(parameters)) return kForbidden;
        const Lattice lattice = lattice_at(parameters);
        if (!lattice.IsValid()) return kForbidden;
        const std::optional<Texture> texture = texture_at(parameters);
        return ScoreOf(target.fine, lines.At(lattice, texture ? &*texture : nullptr));
      },
      search);
  return {best.value, lattice_at(best.parameters), 1.0, texture_at(best.parameters)};
}

}  // namespace

CoarseScore ScoreCoarsely(const ScreenTarget& target, const Candidate& candidate) {
  MovingLines lines(target, candidate);
  CoarseScore best;
  best.score_as_given = ScoreOf(target.fine, lines.AtScale(1.0));
  best.score = ScoreOf(target.coarse, lines.AtScale(1.0));
  for (int step = 1; step <= kScaleSteps; ++step)
    for (const int sign : {-1, 1}) {
      const double scale = 1.0 + sign * step * kScaleStep;
      const double score = ScoreOf(target.coarse, lines.AtScale(scale));
      if (score > best.score) {
        best.score = score;
        best.scale = scale;
      }
    }
  return best;
}

FittedScore FitCandidate(const ScreenTarget& target, const Candidate& candidate, double scale) {
  MovingLines lines(target, candidate);
  if (!candidate.cell) return FitScale(target, lines, SearchFor(candidate, scale, false));
  const bool has_texture = !candidate.texture.empty();
  const Search search = SearchFor(candidate, scale, has_texture);
  if (!has_texture) return FitCell(target, *candidate.cell, lines, search, std::nullopt);
  FittedScore best;
  best.score = kForbidden;
  for (std::size_t axis = 0; axis < candidate.texture.size(); ++axis) {
    const FittedScore fitted = FitCell(target, *candidate.cell, lines, search, axis);
    if (fitted.score > best.score) best = fitted;
  }
  return best;
}

LineList LinesAsGiven(const ScreenTarget& target, const Candidate& candidate) {
  return MovingLines(target, candidate).AtScale(1.0);
}

}  // namespace talven
