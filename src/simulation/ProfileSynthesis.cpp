#include "simulation/ProfileSynthesis.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "crystal/UnitCell.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kLargestIntensity = 99'000.0;
constexpr float kFloor = 2.0F;

/// The point whose bin holds an angle, 0 for none. Edges rise by the step, so a division finds the bin or its
/// neighbour.
std::int32_t FindBin(const SynthesisData& work, double two_theta, double step) {
  const double first_edge = work.BinEdge[1];
  if (!(two_theta > first_edge)) return 0;
  std::int32_t point = std::clamp(Truncate((two_theta - first_edge) / step) + 1, 1, work.PointCount);
  while (point > 1 && two_theta <= work.BinEdge[point]) --point;
  while (point < work.PointCount && two_theta >= work.BinEdge[point + 1]) ++point;
  return two_theta > work.BinEdge[point] && two_theta < work.BinEdge[point + 1] ? point : 0;
}

/// Lays out the points: their lower edges, their angles to two decimals, and empty bins.
void LayOutGrid(const PatternOptions& options, SynthesisData& work) {
  double edge = options.TwoThetaMin;
  for (std::int32_t i = 1; i <= work.PointCount; ++i) {
    work.BinEdge[i] = edge;
    // Both division and quotient are 32 bits wide: the result is the stored real nearest to the two decimals.
    work.GridAngle[i] = Store(std::round(static_cast<double>(Store(edge)) * 100.0)) / 100.0F;
    work.Profile[i] = 0.0F;
    edge += options.Step;
  }
  work.BinEdge[work.PointCount + 1] = edge;
}

float HighestPoint(const SynthesisData& work) {
  float highest = 1.0F;
  for (const float value : work.Profile.Range(1, work.PointCount)) highest = std::max(highest, value);
  return highest;
}

/// True for a bin sum that ten columns hold.
bool FitsScratchField(double rounded) {
  return rounded > -100'000'000.0 && rounded < 1'000'000'000.0;
}

/// Adds a stick's tail of `length` points that begins next to it and runs in `direction` (-1 or +1), taking every
/// `stride`th element of the shape.
void AddTail(SynthesisData& work, std::int32_t point, std::int32_t direction, std::int32_t length,
             std::int32_t stride) {
  if (length < 1) return;
  const double stick = work.Stick[point];
  const double* const shape = &work.TailShape[1];
  float* const centre = &work.Profile[point];
  for (std::int32_t m = 1; m <= length; ++m) {
    float& value = centre[direction * m];
    value = Store(static_cast<double>(value) + Store(shape[m * stride - 1] * stick));
  }
}

/// How many elements of the tail shape give a stored value above zero for a stick.
std::int32_t NonzeroLength(SynthesisData& work, std::int32_t shape_length, double stick) {
  const std::span<const double> shape = work.TailShape.Range(1, shape_length);
  const auto end = std::ranges::partition_point(shape, [stick](double value) { return Store(value * stick) > 0.0F; });
  return static_cast<std::int32_t>(end - shape.begin());
}

/// The reflections that have a point, by rising point and in the order of the list: a sort by counting.
void FillReflections(const ReflectionList& list, SynthesisData& work, std::vector<PatternReflection>& reflections) {
  std::ranges::fill(work.Place.Range(1, work.PointCount), 0);
  const auto points = work.PointOf.Range(1, list.ReflectionCount);
  for (const std::int32_t point : points)
    if (point != 0) ++work.Place[point];
  std::int32_t end = 0;
  for (std::int32_t& place : work.Place.Range(1, work.PointCount)) end += std::exchange(place, end);
  reflections.resize(static_cast<std::size_t>(end));
  for (std::int32_t j = 1; j <= list.ReflectionCount; ++j) {
    const std::int32_t point = work.PointOf[j];
    if (point == 0) continue;
    const auto place = static_cast<std::size_t>(work.Place[point]++);
    reflections[place] = {static_cast<std::size_t>(point - 1), list.H[j], list.K[j], list.L[j]};
  }
}

WideBinSum WideSumAt(std::int32_t point, const SynthesisData& work) {
  WideBinSum wide{.point = point, .rows = {}};
  for (std::int32_t i = 1; i <= work.PointCount; ++i)
    wide.rows.push_back({.angle = Store(work.BinEdge[i]), .sum = work.Profile[i]});
  return wide;
}

}  // namespace

GridExtent SizeGrid(float highest_two_theta, const PatternOptions& options) {
  GridExtent extent;
  extent.TopAngle = Truncate(highest_two_theta) + 1;
  extent.PointCount = Truncate((static_cast<double>(extent.TopAngle) - options.TwoThetaMin) * (1.0 / options.Step));
  return extent;
}

float HighestTwoTheta(const ReflectionList& list) {
  float highest = 0.0F;
  for (const float two_theta : list.TwoTheta.Range(1, list.ReflectionCount)) highest = std::max(highest, two_theta);
  return highest;
}

std::optional<WideBinSum> BinReflections(const ReflectionList& list, const PatternOptions& options,
                                         SynthesisData& work) {
  LayOutGrid(options, work);
  for (std::int32_t j = 1; j <= list.ReflectionCount; ++j) {
    const std::int32_t point = FindBin(work, list.TwoTheta[j], options.Step);
    work.PointOf[j] = point;
    if (point != 0) work.Profile[point] = Store(static_cast<double>(work.Profile[point]) + list.F2[j]);
  }
  work.Scale = 1.0F;
  const float highest = HighestPoint(work);
  if (highest > kLargestIntensity) work.Scale = Store(kLargestIntensity / highest);
  for (std::int32_t i = 1; i <= work.PointCount; ++i) {
    const double rounded = std::round(static_cast<double>(work.Profile[i]));
    if (!FitsScratchField(rounded)) return WideSumAt(i, work);
    work.Stick[i] = Store(work.Scale * rounded);
  }
  std::ranges::copy(work.Stick.Range(1, work.PointCount), work.Profile.Range(1, work.PointCount).begin());
  return std::nullopt;
}

void BroadenPeaks(const PatternOptions& options, SynthesisData& work) {
  const double broadening = std::clamp(options.Broadening, 1.0F, 10.0F);
  const double tail_divisor = options.SymmetricalPeaks ? 1.0 : 2.0;
  const double points_per_degree = 1.0 / options.Step;
  const std::int32_t low_length = Truncate(0.5 * broadening * points_per_degree) + 1;
  const std::int32_t high_length = Truncate(points_per_degree * (0.5 * broadening) * (1.0 / tail_divisor)) + 1;
  const std::int32_t shape_length = std::max(low_length, 2 * high_length);
  for (std::int32_t m = 1; m <= shape_length; ++m)
    work.TailShape[m] = 2.0 * std::exp(-static_cast<double>(m) * (1.0 / broadening));

  for (std::int32_t i = 1; i <= work.PointCount; ++i) {
    const double stick = work.Stick[i];
    if (!(stick > 0.0)) continue;
    // Tail values fall from the first on, so the first low-angle one alone can raise the point itself.
    work.Profile[i] = std::max(work.Profile[i], Store(work.TailShape[1] * stick));
    // What is stored as zero changes nothing.
    const std::int32_t reach = NonzeroLength(work, shape_length, stick);
    AddTail(work, i, -1, std::min({low_length, reach, i - 1}), 1);
    AddTail(work, i, +1, std::min(high_length, reach / 2), 2);
  }
}

void ApplyPowderCorrection(const PatternOptions& options, SynthesisData& work) {
  if (!options.PowderCorrection) return;
  for (std::int32_t i = 1; i <= work.PointCount; ++i) {
    const float intensity = std::max(work.Profile[i], kFloor);
    const float theta = Store(0.5 * work.GridAngle[i] * (1.0 / kDegreesPerRadian));
    const double sine = std::sin(static_cast<double>(theta));
    const double cosine = std::cos(static_cast<double>(theta));
    const float p = Store((1.0 / (sine * sine * cosine)) * (cosine * cosine + 1.0));
    work.Profile[i] = Store(static_cast<double>(intensity) * p);
  }
}

void FinishIntensities(SynthesisData& work) {
  const float highest = HighestPoint(work);
  if (highest > kLargestIntensity) work.Scale = Store(kLargestIntensity / highest);
  for (float& value : work.Profile.Range(1, work.PointCount))
    value = std::max(Store(static_cast<double>(value) * work.Scale), kFloor);
}

void FillPoints(const ReflectionList& list, SynthesisData& work, Pattern& pattern) {
  const auto angles = work.GridAngle.Range(1, work.PointCount);
  const auto counts = work.Profile.Range(1, work.PointCount);
  pattern.two_theta.assign(angles.begin(), angles.end());
  pattern.counts.assign(counts.begin(), counts.end());
  FillReflections(list, work, pattern.reflections);
}

}  // namespace talven
