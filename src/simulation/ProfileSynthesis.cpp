#include "simulation/ProfileSynthesis.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "crystal/UnitCell.h"
#include "textio/FatalIoError.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kLargestIntensity = 99'000.0;
constexpr float kFloor = 2.0F;

/// The point whose bin holds an angle, 0 for none. Edges rise by the step, so a division finds the bin or its
/// neighbour.
std::int32_t FindBin(const PatternGrid& grid, const SynthesisData& work, double two_theta, double step) {
  const double first_edge = work.BinEdge[1];
  if (!(two_theta > first_edge)) return 0;
  std::int32_t point = std::clamp(Truncate((two_theta - first_edge) / step) + 1, 1, grid.PointCount);
  while (point > 1 && two_theta <= work.BinEdge[point]) --point;
  while (point < grid.PointCount && two_theta >= work.BinEdge[point + 1]) ++point;
  return two_theta > work.BinEdge[point] && two_theta < work.BinEdge[point + 1] ? point : 0;
}

/// Lays out the points: their lower edges, their angles to two decimals, and empty bins.
void LayOutGrid(const ProfileParameters& parameters, PatternGrid& grid, SynthesisData& work) {
  double edge = parameters.TwoThetaMin;
  for (std::int32_t i = 1; i <= grid.PointCount; ++i) {
    work.BinEdge[i] = edge;
    // Both division and quotient are 32 bits wide: the result is the stored real nearest to the two decimals.
    grid.GridAngle[i] = Store(std::round(static_cast<double>(Store(edge)) * 100.0)) / 100.0F;
    grid.Profile[i] = 0.0F;
    grid.BinReflection[i] = 0;
    edge += parameters.Step;
  }
  work.BinEdge[grid.PointCount + 1] = edge;
}

float HighestPoint(PatternGrid& grid) {
  float highest = 1.0F;
  for (const float value : grid.Profile.Range(1, grid.PointCount)) highest = std::max(highest, value);
  return highest;
}

/// Leaves the rows in the scratch file and ends the run: the sum of a point can't be read back from it.
[[noreturn]] void FailReadingBack(const PatternGrid& grid, const SynthesisData& work, std::int32_t point,
                                  OutputFile& scratch) {
  for (std::int32_t i = 1; i <= grid.PointCount; ++i)
    scratch.WriteLine(Record().X(1).F(Store(work.BinEdge[i]), 8, 2).X(3).F(grid.Profile[i], 10, 0));
  FailAtLine(scratch.Name(), static_cast<std::size_t>(point), "a bin sum that fits ten columns", "**********");
}

/// True for a bin sum that ten columns hold.
bool FitsScratchField(double rounded) {
  return rounded > -100'000'000.0 && rounded < 1'000'000'000.0;
}

/// Adds a stick's tail of `length` points that begins next to it and runs in `direction` (-1 or +1), taking every
/// `stride`th element of the shape.
void AddTail(PatternGrid& grid, const SynthesisData& work, std::int32_t point, std::int32_t direction,
             std::int32_t length, std::int32_t stride) {
  if (length < 1) return;
  const double stick = grid.Stick[point];
  const double* const shape = &work.TailShape[1];
  float* const centre = &grid.Profile[point];
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

}  // namespace

void BinReflections(const ReflectionList& list, const ProfileParameters& parameters, OutputFile& scratch,
                    PatternGrid& grid, SynthesisData& work) {
  LayOutGrid(parameters, grid, work);
  for (std::int32_t j = 1; j <= list.ReflectionCount; ++j) {
    const std::int32_t point = FindBin(grid, work, list.TwoTheta[j], parameters.Step);
    if (point == 0) continue;
    grid.Profile[point] = Store(static_cast<double>(grid.Profile[point]) + list.F2[j]);
    grid.BinReflection[point] = j;
  }
  work.Scale = 1.0F;
  const float highest = HighestPoint(grid);
  if (highest > kLargestIntensity) work.Scale = Store(kLargestIntensity / highest);
  for (std::int32_t i = 1; i <= grid.PointCount; ++i) {
    const double rounded = std::round(static_cast<double>(grid.Profile[i]));
    if (!FitsScratchField(rounded)) FailReadingBack(grid, work, i, scratch);
    grid.Stick[i] = Store(work.Scale * rounded);
  }
  std::ranges::copy(grid.Stick.Range(1, grid.PointCount), grid.Profile.Range(1, grid.PointCount).begin());
}

void BroadenPeaks(const ProfileParameters& parameters, PatternGrid& grid, SynthesisData& work) {
  const double broadening = std::clamp(parameters.Broadening, 1.0F, 10.0F);
  const double tail_divisor = parameters.SymmetricalPeaks ? 1.0 : 2.0;
  const double points_per_degree = 1.0 / parameters.Step;
  const std::int32_t low_length = Truncate(0.5 * broadening * points_per_degree) + 1;
  const std::int32_t high_length = Truncate(points_per_degree * (0.5 * broadening) * (1.0 / tail_divisor)) + 1;
  const std::int32_t shape_length = std::max(low_length, 2 * high_length);
  for (std::int32_t m = 1; m <= shape_length; ++m)
    work.TailShape[m] = 2.0 * std::exp(-static_cast<double>(m) * (1.0 / broadening));

  for (std::int32_t i = 1; i <= grid.PointCount; ++i) {
    const double stick = grid.Stick[i];
    if (!(stick > 0.0)) continue;
    // Tail values fall from the first on, so the first low-angle one alone can raise the point itself.
    grid.Profile[i] = std::max(grid.Profile[i], Store(work.TailShape[1] * stick));
    // What is stored as zero changes nothing.
    const std::int32_t reach = NonzeroLength(work, shape_length, stick);
    AddTail(grid, work, i, -1, std::min({low_length, reach, i - 1}), 1);
    AddTail(grid, work, i, +1, std::min(high_length, reach / 2), 2);
  }
}

void ApplyPowderCorrection(const ProfileParameters& parameters, PatternGrid& grid) {
  if (!parameters.PowderCorrection) return;
  for (std::int32_t i = 1; i <= grid.PointCount; ++i) {
    const float intensity = std::max(grid.Profile[i], kFloor);
    const float theta = Store(0.5 * grid.GridAngle[i] * (1.0 / kDegreesPerRadian));
    const double sine = std::sin(static_cast<double>(theta));
    const double cosine = std::cos(static_cast<double>(theta));
    const float p = Store((1.0 / (sine * sine * cosine)) * (cosine * cosine + 1.0));
    grid.Profile[i] = Store(static_cast<double>(intensity) * p);
  }
}

void FinishIntensities(PatternGrid& grid, SynthesisData& work) {
  const float highest = HighestPoint(grid);
  if (highest > kLargestIntensity) work.Scale = Store(kLargestIntensity / highest);
  for (float& value : grid.Profile.Range(1, grid.PointCount)) value = Store(static_cast<double>(value) * work.Scale);
}

}  // namespace talven
