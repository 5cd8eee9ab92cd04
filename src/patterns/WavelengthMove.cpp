#include "patterns/WavelengthMove.h"

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

}  // namespace talven
