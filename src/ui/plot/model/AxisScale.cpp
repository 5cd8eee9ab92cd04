#include "ui/plot/model/AxisScale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace talven {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

std::string TickLabel(double value) {
  std::array<char, 32> text{};
  const bool is_plain = value == 0.0 || (std::abs(value) >= 1e-4 && std::abs(value) < 1e7);
  const auto format = is_plain ? std::chars_format::general : std::chars_format::scientific;
  const int digits = is_plain ? 9 : 2;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format, digits).ptr;
  return {text.data(), end};
}

/// The step of 1, 2 or 5 times a power of ten that divides a span into about `count` parts.
double RoundStep(double span, int count) {
  const double raw = span / count;
  const double decade = std::pow(10.0, std::floor(std::log10(raw)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * decade >= raw) return factor * decade;
  }
  return 10.0 * decade;
}

std::vector<double> EvenValues(double lower, double upper, int count) {
  std::vector<double> values;
  const double step = RoundStep(upper - lower, count);
  const double first = std::ceil(lower / step);
  for (int i = 0; (first + i) * step <= upper && i <= 4 * count; ++i) values.push_back((first + i) * step);
  return values;
}

/// Powers of ten, with 2 and 5 times them where there is room.
std::vector<double> DecadeValues(double lower, double upper, int count) {
  std::vector<double> values;
  const int first = static_cast<int>(std::floor(std::log10(lower)));
  const int last = static_cast<int>(std::ceil(std::log10(upper)));
  const int stride = std::max(1, (last - first) / std::max(1, count));
  const bool has_room = (last - first) * 2 <= count;
  for (int decade = first; decade <= last; decade += stride) {
    for (const double factor : {1.0, 2.0, 5.0}) {
      const double value = factor * std::pow(10.0, decade);
      if (value >= lower && value <= upper && (factor == 1.0 || has_room)) values.push_back(value);
    }
  }
  return values;
}

}  // namespace

double AlongValue(AlongUnit unit, double two_theta, double wavelength) {
  if (unit == AlongUnit::kTwoTheta) return two_theta;
  const double sine = std::sin(two_theta / 2.0 * kDegree);
  return unit == AlongUnit::kD ? wavelength / (2.0 * sine) : 4.0 * std::numbers::pi * sine / wavelength;
}

double TwoThetaAt(AlongUnit unit, double value, double wavelength) {
  if (unit == AlongUnit::kTwoTheta) return std::clamp(value, 0.0, 180.0);
  if (unit == AlongUnit::kD && value <= 0.0) return 180.0;
  const double sine =
      unit == AlongUnit::kD ? wavelength / (2.0 * value) : value * wavelength / (4.0 * std::numbers::pi);
  return 2.0 * std::asin(std::clamp(sine, 0.0, 1.0)) / kDegree;
}

std::string AlongTitle(AlongUnit unit) {
  if (unit == AlongUnit::kTwoTheta) return "2θ (°)";
  return unit == AlongUnit::kD ? "d (Å)" : "Q (Å⁻¹)";
}

double UpAxis::Place(double intensity) const {
  if (scale == UpScale::kLogarithm) return std::log10(std::max(intensity, floor));
  if (scale == UpScale::kSquareRoot) return std::copysign(std::sqrt(std::abs(intensity)), intensity);
  return intensity;
}

double UpAxis::Intensity(double place) const {
  if (scale == UpScale::kLogarithm) return std::pow(10.0, place);
  return scale == UpScale::kSquareRoot ? std::copysign(place * place, place) : place;
}

std::vector<AxisTick> UpAxis::Ticks(double lower, double upper, int count) const {
  if (!(lower < upper) || !std::isfinite(upper - lower)) return {};
  const double least = Intensity(lower);
  const double most = Intensity(upper);
  const bool by_decades = scale == UpScale::kLogarithm && most / least > 10.0;
  std::vector<AxisTick> ticks;
  for (const double value : by_decades ? DecadeValues(least, most, count) : EvenValues(least, most, count)) {
    ticks.push_back({Place(value), TickLabel(value)});
  }
  return ticks;
}

}  // namespace talven
