#include "ui/plot/model/PlotModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "ui/plot/model/Decimation.h"
#include "ui/plot/model/Difference.h"
#include "ui/plot/model/ReflectionTicks.h"

namespace talven {
namespace {

constexpr double kFullHeight = 100.0;
/// Of the highest curve's height, from one stacked curve to the next.
constexpr double kStackShare = 0.35;
constexpr double kAir = 0.05;
/// The lowest intensity on a logarithmic axis is not below this share of the highest.
constexpr double kLogRange = 1e-6;
/// Nearer to zero d grows without end, and so would the axis; Q and d exist from the smaller one on.
constexpr double kSmallestShownAngle = 1.0;
constexpr double kSmallestAngle = 0.01;

double Highest(const Pattern& pattern) {
  return pattern.counts.empty() ? 0.0 : *std::ranges::max_element(pattern.counts);
}

double LowestPositive(const Pattern& pattern) {
  double lowest = std::numeric_limits<double>::infinity();
  for (const double count : pattern.counts) {
    if (count > 0.0) lowest = std::min(lowest, count);
  }
  return lowest;
}

void Widen(PlotRange& range, double value) {
  range.lower = std::min(range.lower, value);
  range.upper = std::max(range.upper, value);
}

PlotRange Nothing() {
  return {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
}

}  // namespace

void PlotModel::Show(PlotSeries series) {
  if (series_.empty()) {
    series_.push_back(std::move(series));
  } else {
    earlier_.insert(earlier_.begin(), std::exchange(series_.front(), std::move(series)));
    if (earlier_.size() > kKeptEarlier) earlier_.pop_back();
  }
  sticks_ = {};
  ticks_ = GatherReflections(series_.front().pattern);
  Arrange();
}

void PlotModel::ShowSticks(StickSet sticks) {
  sticks_ = std::move(sticks);
  ticks_.clear();
  for (const Stick& stick : sticks_.sticks) ticks_.push_back({stick.two_theta, stick.label});
}

void PlotModel::AddOverlay(PlotSeries series) {
  if (series_.empty()) return Show(std::move(series));
  series_.push_back(std::move(series));
  Arrange();
}

void PlotModel::RemoveOverlays() {
  if (series_.size() > 1) series_.resize(1);
  Arrange();
}

void PlotModel::Set(const PlotSettings& settings) {
  settings_ = settings;
  Arrange();
}

double PlotModel::Wavelength(std::size_t series) const {
  if (series < series_.size() && series_[series].pattern.wavelength) return *series_[series].pattern.wavelength;
  if (!series_.empty() && series_.front().pattern.wavelength) return *series_.front().pattern.wavelength;
  return given_wavelength_.value_or(kAssumedWavelength);
}

bool PlotModel::IsWavelengthAssumed() const {
  return !series_.empty() && !series_.front().pattern.wavelength && !given_wavelength_;
}

void PlotModel::GiveWavelength(double wavelength) {
  given_wavelength_ = wavelength;
  Arrange();
}

void PlotModel::Arrange() {
  placings_.clear();
  double lowest = std::numeric_limits<double>::infinity();
  double highest = 0.0;
  for (std::size_t i = 0; i < series_.size(); ++i) {
    const double top = Highest(series_[i].pattern);
    const bool is_scaled = settings_.arrangement != Arrangement::kAsMeasured && top > 0.0;
    placings_.push_back({Wavelength(i), is_scaled ? kFullHeight / top : 1.0, 0.0});
    lowest = std::min(lowest, LowestPositive(series_[i].pattern) * placings_.back().factor);
    highest = std::max(highest, top * placings_.back().factor);
  }
  up_ = {settings_.up, highest > 0.0 ? std::clamp(lowest, highest * kLogRange, highest / 10.0) : 1.0};
  if (settings_.arrangement == Arrangement::kStacked) {
    const double bottom = settings_.up == UpScale::kLogarithm ? up_.Place(0.0) : 0.0;
    const double spacing = kStackShare * (up_.Place(kFullHeight) - bottom);
    for (std::size_t i = 0; i < placings_.size(); ++i) placings_[i].shift = spacing * static_cast<double>(i);
  }
  ComputeDifference();
}

void PlotModel::ComputeDifference() {
  difference_ = {};
  if (!settings_.shows_difference || series_.size() < 2 || settings_.up == UpScale::kLogarithm) return;
  const auto other_angle = [this](double two_theta) {
    return TwoThetaAt(settings_.along, Along(two_theta), Wavelength(1));
  };
  difference_ =
      DifferenceOf(series_[0].pattern, placings_[0].factor, series_[1].pattern, placings_[1].factor, other_angle);
  if (difference_.counts.empty()) return;
  double lowest = std::numeric_limits<double>::infinity();
  for (const double count : series_[0].pattern.counts) lowest = std::min(lowest, PlaceOf(count));
  difference_placing_ = {Wavelength(0), 1.0, 0.0};
  const double gap = kAir * (up_.Place(Highest(series_[0].pattern) * placings_[0].factor) - lowest);
  difference_placing_.shift = lowest - gap - up_.Place(Highest(difference_));
}

double PlotModel::Along(double two_theta, std::size_t series) const {
  return AlongValue(settings_.along, std::max(two_theta, kSmallestAngle), Wavelength(series));
}

double PlotModel::TwoThetaOf(double along) const {
  return TwoThetaAt(settings_.along, along, Wavelength(0));
}

double PlotModel::PlaceOf(double intensity, std::size_t series) const {
  const Placing placing = series < placings_.size() ? placings_[series] : Placing{};
  return up_.Place(intensity * placing.factor) + placing.shift;
}

PlotRange PlotModel::FullAlong() const {
  PlotRange range = Nothing();
  for (std::size_t i = 0; i < series_.size(); ++i) {
    const std::vector<double>& angles = series_[i].pattern.two_theta;
    if (angles.empty()) continue;
    const bool grows = settings_.along == AlongUnit::kD;
    Widen(range, Along(grows ? std::max(angles.front(), kSmallestShownAngle) : angles.front(), i));
    Widen(range, Along(angles.back(), i));
  }
  return range.lower < range.upper ? range : PlotRange{0.0, 180.0};
}

PlotRange PlotModel::FullUp(const PlotRange& along) const {
  constexpr std::size_t kColumns = 500;
  PlotRange range = Nothing();
  const auto look_at = [&](const Curve& curve) {
    for (std::size_t i = 0; i < curve.x.size(); ++i) {
      if (curve.x[i] >= along.lower && curve.x[i] <= along.upper) Widen(range, curve.y[i]);
    }
  };
  for (std::size_t i = 0; i < series_.size(); ++i) look_at(CurveOf(i, along, kColumns));
  if (HasDifference()) look_at(DifferenceCurve(along, kColumns));
  if (!(range.lower <= range.upper)) return {0.0, 1.0};
  const double base = up_.scale == UpScale::kLogarithm || range.lower < 0.0 ? range.lower : 0.0;
  const double height = range.upper > base ? range.upper - base : 1.0;
  return {base - 0.4 * kAir * height, base + (1.0 + kAir) * height};
}

Curve PlotModel::Draw(const std::vector<double>& two_theta, const std::vector<double>& values, const Placing& placing,
                      const PlotRange& along, std::size_t columns) const {
  std::vector<double> edges(columns + 1);
  const double width = (along.upper - along.lower) / static_cast<double>(columns);
  for (std::size_t i = 0; i <= columns; ++i) {
    edges[i] = TwoThetaAt(settings_.along, along.lower + static_cast<double>(i) * width, placing.wavelength);
  }
  const bool falls = settings_.along == AlongUnit::kD;
  if (falls) std::ranges::reverse(edges);
  std::vector<std::size_t> points = PointsToDraw(two_theta, values, edges);
  if (falls) std::ranges::reverse(points);
  Curve curve;
  curve.x.reserve(points.size());
  curve.y.reserve(points.size());
  for (const std::size_t point : points) {
    curve.x.push_back(AlongValue(settings_.along, std::max(two_theta[point], kSmallestAngle), placing.wavelength));
    curve.y.push_back(up_.Place(values[point] * placing.factor) + placing.shift);
  }
  return curve;
}

std::size_t PlotModel::DrawnPoints(const PlotRange& along, std::size_t columns) const {
  std::size_t count = 0;
  for (std::size_t i = 0; i < series_.size(); ++i) {
    const std::vector<double>& angles = series_[i].pattern.two_theta;
    const auto [first, last] = std::minmax({TwoThetaAt(settings_.along, along.lower, placings_[i].wavelength),
                                            TwoThetaAt(settings_.along, along.upper, placings_[i].wavelength)});
    const auto in_view = std::ranges::upper_bound(angles, last) - std::ranges::lower_bound(angles, first);
    count += std::min(static_cast<std::size_t>(in_view), 2 * columns);
  }
  return count;
}

Curve PlotModel::CurveOf(std::size_t series, const PlotRange& along, std::size_t columns) const {
  const Pattern& pattern = series_[series].pattern;
  return Draw(pattern.two_theta, pattern.counts, placings_[series], along, columns);
}

Curve PlotModel::CurveOf(const std::vector<double>& values, const PlotRange& along, std::size_t columns) const {
  return Draw(series_.front().pattern.two_theta, values, placings_.front(), along, columns);
}

Curve PlotModel::DifferenceCurve(const PlotRange& along, std::size_t columns) const {
  return Draw(difference_.two_theta, difference_.counts, difference_placing_, along, columns);
}

std::optional<PlotReading> PlotModel::ReadAt(double two_theta) const {
  if (series_.empty() || series_.front().pattern.PointCount() == 0) return std::nullopt;
  const Pattern& pattern = series_.front().pattern;
  PlotReading reading;
  reading.two_theta = two_theta;
  reading.d = AlongValue(AlongUnit::kD, two_theta, Wavelength(0));
  reading.point = NearestIndex(pattern.two_theta, two_theta);
  reading.intensity = pattern.counts[reading.point];
  if (!ticks_.empty()) reading.reflection = NearestTick(ticks_, two_theta);
  return reading;
}

}  // namespace talven
