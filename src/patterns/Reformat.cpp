#include "patterns/Reformat.h"

#include <algorithm>
#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kDegreesPerRadian = 57.29578;
constexpr double kSmallestChange = 0.001;
constexpr double kNoLimit = 170.0;
constexpr double kSineShare = 0.95;

double MovedSine(const WavelengthMove& move, double theta) {
  return std::sin(theta / kDegreesPerRadian) * move.NewWavelength / move.OldWavelength;
}

float TwoTheta(double sine) {
  return Store(2.0 * kDegreesPerRadian * std::asin(sine));
}

/// Moves the range of the head. False if nothing of the pattern is left. On purpose the limit, a theta, is held against
/// the first 2 theta here.
bool MoveRange(const WavelengthMove& move, IngHeader& header) {
  if (!move.MovesAngles()) return true;
  move.MoveRange(header);
  return !(move.LimitAngle() <= header.FirstAngle);
}

/// Reads the rows and moves them. A row beyond the limit ends them. False if there are more than 100000.
bool ReadRows(TextInput& ing, const WavelengthMove& move, std::int32_t& count, ReformatWork& work) {
  const bool moves_angles = move.MovesAngles();
  const float limit = move.LimitAngle();
  for (std::int32_t i = 1; i <= std::min(count, kLargestReformatCount); ++i) {
    IngRow row{work.X[i], work.Y[i]};
    const bool is_read = ReadIngRow(ing, kReformatRows, row);
    work.X[i] = row.Angle;
    work.Y[i] = row.Intensity;
    if (!is_read) break;
    if (!moves_angles) continue;
    const double theta = 0.5 * row.Angle;
    if (limit <= theta) {
      count = i - 1;
      break;
    }
    work.X[i] = move.Move(theta);
  }
  return count <= kLargestReformatCount;
}

/// How many cells or bins of a step a range has. On purpose: half a step in degrees is added, not half a cell.
std::int32_t CountSteps(const IngHeader& header, double step) {
  const double range = static_cast<double>(header.LastAngle) - header.FirstAngle;
  return Truncate(range / step + 0.5 * step);
}

}  // namespace

bool WavelengthMove::MovesAngles() const {
  return std::fabs(static_cast<double>(NewWavelength) - OldWavelength) > kSmallestChange;
}

float WavelengthMove::LimitAngle() const {
  if (NewWavelength <= OldWavelength) return Store(kNoLimit);
  const double ratio = static_cast<double>(OldWavelength) / NewWavelength;
  return Store(std::asin(ratio) * kDegreesPerRadian * kSineShare);
}

float WavelengthMove::Move(double theta) const {
  return TwoTheta(MovedSine(*this, theta));
}

void WavelengthMove::MoveRange(IngHeader& header) const {
  header.FirstAngle = Move(0.5 * header.FirstAngle);
  float sine = Store(MovedSine(*this, 0.5 * header.LastAngle));
  if (sine >= 1.0F) sine = Store(kSineShare);
  header.LastAngle = TwoTheta(sine);
}

ReformatOutcome FillWorkingGrid(TextInput& ing, const ReformatOptions& options, IngHeader& header, ReformatWork& work) {
  const WavelengthMove move{options.OldWavelength, options.NewWavelength};
  if (!MoveRange(move, header)) return ReformatOutcome::kNothingLeft;
  if (!ReadRows(ing, move, header.PointCount, work) ||
      !BuildFineGrid(header.FirstAngle, header.LastAngle, work.FineStep, work.FineGrid) ||
      !PlaceRows(work.X, work.Y, header.PointCount, header.FirstAngle, work.FineStep, work.FineCounts))
    return ReformatOutcome::kTooManyPoints;
  const std::int32_t cell_count = CountSteps(header, work.FineStep);
  if (std::max(cell_count, CountSteps(header, options.NewStep)) > kLargestReformatCount)
    return ReformatOutcome::kTooManyPoints;
  FillGaps(work.FineCounts, cell_count);
  return ReformatOutcome::kFilled;
}

IngPattern BinWorkingGrid(const ReformatOptions& options, const IngHeader& header, ReformatWork& work) {
  const std::int32_t cell_count = CountSteps(header, work.FineStep);
  const std::int32_t bin_count = CountSteps(header, options.NewStep);
  BinCells(work.FineGrid, work.FineCounts, cell_count, header.FirstAngle, options.NewStep, bin_count, work.X, work.Y);
  Rescale(work.Y.Range(1, bin_count));
  IngPattern pattern{.header = header, .rows = {}};
  pattern.header.Wavelength = options.NewWavelength;
  pattern.header.FirstAngle = work.X[1];
  pattern.header.Step = options.NewStep;
  pattern.header.PointCount = bin_count;
  pattern.rows.reserve(static_cast<std::size_t>(std::max(bin_count, 0)));
  for (std::int32_t i = 1; i <= bin_count; ++i) pattern.rows.push_back({work.X[i], work.Y[i]});
  return pattern;
}

}  // namespace talven
