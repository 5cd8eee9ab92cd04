#include "screening/Correlation.h"

#include <algorithm>
#include <numbers>
#include <numeric>

namespace talven {
namespace {

/// Steps of the kernels: parts of a width and of the triangle's reach.
constexpr double kStepsInWidth = 32.0;
constexpr double kStepsInReach = 64.0;
/// Step of gridded lines in widths of the kernel's own step.
constexpr double kGridSteps = 4.0;
/// From here on pairs cost more than a grid.
constexpr std::size_t kMostPairedLines = 2000;

std::vector<double> Triangle(double reach, double step) {
  std::vector<double> values(static_cast<std::size_t>(std::ceil(reach / step)) + 1);
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = std::max(0.0, 1.0 - static_cast<double>(i) * step / reach);
  return values;
}

/// The profile to its reach, scaled to unit area on this step.
std::vector<double> Profile(double fwhm, double step) {
  std::vector<double> values(static_cast<std::size_t>(kProfileReach * fwhm / step) + 1);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = PseudoVoigt(static_cast<double>(i) * step, fwhm);
  const double area = step * (2.0 * std::accumulate(values.begin(), values.end(), 0.0) - values[0]);
  for (double& value : values) value /= area;
  return values;
}

/// The convolution of two symmetrical functions, each by its values from the middle on.
std::vector<double> ConvolveSymmetric(const std::vector<double>& a, const std::vector<double>& b, double step) {
  // Both halves of the first, so that the inner loop runs straight.
  std::vector<double> whole(a.rbegin(), a.rend());
  whole.insert(whole.end(), a.begin() + 1, a.end());
  std::vector<double> result(a.size() + b.size() - 1, 0.0);
  const auto middle = static_cast<std::ptrdiff_t>(a.size()) - 1;
  const auto reach = static_cast<std::ptrdiff_t>(b.size()) - 1;
  for (std::ptrdiff_t r = 0; r < static_cast<std::ptrdiff_t>(result.size()); ++r) {
    double sum = 0.0;
    for (std::ptrdiff_t u = std::max(-reach, r - middle); u <= std::min(reach, r + middle); ++u)
      sum += whole[static_cast<std::size_t>(middle + r - u)] * b[static_cast<std::size_t>(u < 0 ? -u : u)];
    result[static_cast<std::size_t>(r)] = sum * step;
  }
  return result;
}

/// Sums of a kernel and the values around each point, values beyond the ends being 0.
std::vector<double> SpreadOut(const std::vector<double>& values, const SymmetricTable& kernel, double step) {
  const std::size_t reach = std::min(static_cast<std::size_t>(kernel.Reach() / step), values.size() - 1);
  std::vector<double> weights(reach + 1);
  for (std::size_t k = 0; k <= reach; ++k) weights[k] = kernel.At(static_cast<double>(k) * step);
  std::vector<double> sums(values.size(), 0.0);
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] == 0.0) continue;
    sums[i] += weights[0] * values[i];
    const std::size_t left = std::min(reach, i);
    const std::size_t right = std::min(reach, values.size() - 1 - i);
    for (std::size_t k = 1; k <= left; ++k) sums[i - k] += weights[k] * values[i];
    for (std::size_t k = 1; k <= right; ++k) sums[i + k] += weights[k] * values[i];
  }
  return sums;
}

double Dot(const std::vector<double>& a, const std::vector<double>& b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

double Quotient(double numerator, double squared_denominator) {
  return squared_denominator > 0.0 ? numerator / std::sqrt(squared_denominator) : 0.0;
}

}  // namespace

double PseudoVoigt(double distance, double fwhm) {
  const double x = 2.0 * distance / fwhm;
  const double lorentz = 2.0 / (std::numbers::pi * fwhm) / (1.0 + x * x);
  const double gauss =
      2.0 / fwhm * std::sqrt(std::numbers::ln2 / std::numbers::pi) * std::exp(-std::numbers::ln2 * x * x);
  return 0.5 * (lorentz + gauss);
}

CorrelationKernels MakeKernels(double reach, double fwhm) {
  const double step = std::min(fwhm / kStepsInWidth, reach / kStepsInReach);
  const std::vector<double> profile = Profile(fwhm, step);
  CorrelationKernels kernels;
  kernels.weight_and_profile = {step, ConvolveSymmetric(Triangle(reach, step), profile, step)};
  kernels.weight_and_two_profiles = {step, ConvolveSymmetric(kernels.weight_and_profile.values, profile, step)};
  return kernels;
}

CorrelationTarget::CorrelationTarget(const EvenGrid& net, double reach, double fwhm)
    : first_(net.first_two_theta), step_(net.step), kernels_(MakeKernels(reach, fwhm)) {
  overlap_ = SpreadOut(net.counts, kernels_.weight_and_profile, step_);
  for (double& value : overlap_) value *= step_;
  const double fine = std::min(step_, reach);
  power_ = Dot(net.counts, SpreadOut(net.counts, {fine, Triangle(reach, fine)}, step_)) * step_ * step_;
}

double CorrelationTarget::Overlap(std::span<const double> two_theta, std::span<const double> intensities) const {
  double sum = 0.0;
  for (std::size_t i = 0; i < two_theta.size(); ++i) {
    const double place = std::clamp((two_theta[i] - first_) / step_, 0.0, static_cast<double>(overlap_.size() - 1));
    const auto low = static_cast<std::size_t>(place);
    const std::size_t high = std::min(low + 1, overlap_.size() - 1);
    sum += intensities[i] * (overlap_[low] + (place - static_cast<double>(low)) * (overlap_[high] - overlap_[low]));
  }
  return sum;
}

double CorrelationTarget::Score(std::span<const double> two_theta, std::span<const double> intensities) const {
  const double power = two_theta.size() > kMostPairedLines
                           ? GriddedLines(two_theta, intensities, first_, LastTwoTheta(), LineOverlap()).Power()
                           : LinePower(two_theta, intensities, LineOverlap());
  return Quotient(Overlap(two_theta, intensities), power_ * power);
}

double LinePower(std::span<const double> two_theta, std::span<const double> intensities,
                 const SymmetricTable& overlap) {
  const double* const table = overlap.values.data();
  const double scale = 1.0 / overlap.step;
  const double reach = overlap.Reach();
  double alone = 0.0;
  double pairs = 0.0;
  for (std::size_t i = 0; i < two_theta.size(); ++i) {
    alone += intensities[i] * intensities[i];
    double sum = 0.0;
    for (std::size_t j = i + 1; j < two_theta.size(); ++j) {
      const double distance = two_theta[j] - two_theta[i];
      if (distance >= reach) break;
      const double place = distance * scale;
      const auto low = static_cast<std::int32_t>(place);
      sum += intensities[j] * (table[low] + (place - low) * (table[low + 1] - table[low]));
    }
    pairs += intensities[i] * sum;
  }
  return overlap.values[0] * alone + 2.0 * pairs;
}

GriddedLines::GriddedLines(std::span<const double> two_theta, std::span<const double> intensities, double first,
                           double last, const SymmetricTable& overlap)
    : step_(kGridSteps * overlap.step) {
  lines_.resize(static_cast<std::size_t>((last - first) / step_) + 2);
  for (std::size_t i = 0; i < two_theta.size(); ++i) {
    const double place = std::clamp((two_theta[i] - first) / step_, 0.0, static_cast<double>(lines_.size() - 2));
    const auto low = static_cast<std::size_t>(place);
    const double share = place - static_cast<double>(low);
    lines_[low] += (1.0 - share) * intensities[i];
    lines_[low + 1] += share * intensities[i];
  }
  spread_ = SpreadOut(lines_, overlap, step_);
}

double GriddedLines::Power() const {
  return Dot(lines_, spread_);
}

double GriddedLines::Correlate(const GriddedLines& other) const {
  return Quotient(Dot(lines_, other.spread_), Power() * other.Power());
}

}  // namespace talven
