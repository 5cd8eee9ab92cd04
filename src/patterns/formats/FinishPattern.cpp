#include "patterns/formats/FinishPattern.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "patterns/formats/FormatText.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

constexpr double kLargestAngle = 180.0;
constexpr double kStepTolerance = 0.1;
constexpr double kExactAngle = 1e-6;

/// Reports a fault of one point: at its line, or by its number.
[[noreturn]] void FailAtPoint(std::string_view name, std::span<const std::uint32_t> lines, std::size_t point,
                              std::string_view expected, const std::string& found) {
  if (point < lines.size()) FailAtLine(name, lines[point], expected, found);
  FailInFile(name, expected, found + " at point " + std::to_string(point + 1));
}

void CheckValues(std::string_view name, const Pattern& pattern, std::span<const std::uint32_t> lines) {
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
    if (!std::isfinite(pattern.counts[i]))
      FailAtPoint(name, lines, i, "a finite number of counts", NumberText(pattern.counts[i]));
    if (!(std::abs(pattern.two_theta[i]) <= kLargestAngle))
      FailAtPoint(name, lines, i, "an angle 2theta of at most 180 degrees", NumberText(pattern.two_theta[i]));
  }
  for (std::size_t i = 0; i < pattern.sigma.size(); ++i)
    if (!std::isfinite(pattern.sigma[i]) || pattern.sigma[i] < 0.0)
      FailAtPoint(name, lines, i, "a standard deviation of 0 or above", NumberText(pattern.sigma[i]));
}

void CheckDirection(std::string_view name, const Pattern& pattern, std::span<const std::uint32_t> lines) {
  const std::vector<double>& angle = pattern.two_theta;
  if (std::ranges::all_of(angle, [&](double a) { return a == angle.front(); }))
    FailInFile(name, "a scan of 2theta", "2theta standing still at " + AngleText(angle.front()) + " degrees");
  const bool falls = angle[1] < angle[0];
  for (std::size_t i = 1; i < angle.size(); ++i) {
    if (falls ? angle[i] < angle[i - 1] : angle[i] > angle[i - 1]) continue;
    FailAtPoint(name, lines, i, falls ? "angles that go on falling" : "angles that go on rising",
                AngleText(angle[i]) + " after " + AngleText(angle[i - 1]));
  }
}

void TurnRound(PatternFile& file) {
  Pattern& pattern = file.pattern;
  std::ranges::reverse(pattern.two_theta);
  std::ranges::reverse(pattern.counts);
  std::ranges::reverse(pattern.sigma);
  std::ranges::reverse(pattern.reflections);
  for (PatternReflection& reflection : pattern.reflections)
    reflection.point = pattern.PointCount() - 1 - reflection.point;
  file.notices.emplace_back("The angles fall; the points were turned round.");
}

/// The largest distance of an angle from first + i * step.
double LargestDeviation(const std::vector<double>& angle, double step) {
  double largest = 0.0;
  for (std::size_t i = 0; i < angle.size(); ++i)
    largest = std::max(largest, std::abs(angle[i] - (angle.front() + static_cast<double>(i) * step)));
  return largest;
}

bool KeepsStep(const std::vector<double>& angle, double step) {
  return LargestDeviation(angle, step) <= kStepTolerance * step;
}

double MeanStep(const std::vector<double>& angle) {
  return (angle.back() - angle.front()) / static_cast<double>(angle.size() - 1);
}

}  // namespace

std::size_t ChooseScan(std::string_view name, std::size_t scan_count, const PatternReadOptions& options,
                       PatternFile& file) {
  const std::string count = std::to_string(scan_count);
  if (scan_count == 0) FailInFile(name, "a scan", "none");
  file.scan_count = static_cast<int>(scan_count);
  file.scan = options.scan.value_or(1);
  if (file.scan < 1 || file.scan > file.scan_count)
    FailInFile(name, "scan " + std::to_string(file.scan), scan_count == 1 ? "one scan" : count + " scans");
  if (!options.scan && scan_count > 1) file.notices.push_back("The first of " + count + " scans was read.");
  return static_cast<std::size_t>(file.scan - 1);
}

void ReservePoints(std::size_t most, Pattern& pattern) {
  pattern.two_theta.reserve(most);
  pattern.counts.reserve(most);
}

void NoticeCutText(std::string_view text, PatternFile& file) {
  if (!text.ends_with('\n')) file.notices.emplace_back("The last line has no end; the file may have been cut short.");
}

void SetEvenAngles(std::string_view name, double first, double step, Pattern& pattern) {
  if (!std::isfinite(step) || step == 0.0) FailInFile(name, "a step that is not 0", NumberText(step));
  pattern.two_theta.resize(pattern.PointCount());
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) pattern.two_theta[i] = first + static_cast<double>(i) * step;
  pattern.step = std::abs(step);
}

void SpreadAngles(std::string_view name, double first, double last, Pattern& pattern) {
  const std::size_t count = pattern.PointCount();
  if (count < 2) FailInFile(name, "two points at least", std::to_string(count));
  SetEvenAngles(name, first, (last - first) / static_cast<double>(count - 1), pattern);
  pattern.two_theta.back() = last;
}

void FinishPattern(std::string_view name, PatternFile& file, std::span<const std::uint32_t> lines) {
  Pattern& pattern = file.pattern;
  if (pattern.PointCount() < 2) FailInFile(name, "two points at least", std::to_string(pattern.PointCount()));
  CheckValues(name, pattern, lines);
  CheckDirection(name, pattern, lines);
  if (pattern.two_theta.front() > pattern.two_theta.back()) TurnRound(file);
  const double mean = MeanStep(pattern.two_theta);
  if (!pattern.step || !KeepsStep(pattern.two_theta, *pattern.step)) pattern.step = mean;
  if (!KeepsStep(pattern.two_theta, *pattern.step)) pattern.step.reset();
}

bool HasExactSteps(const Pattern& pattern) {
  return pattern.step && LargestDeviation(pattern.two_theta, *pattern.step) <= kExactAngle;
}

}  // namespace talven
