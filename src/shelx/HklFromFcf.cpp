#include "shelx/HklFromFcf.h"

#include <cmath>

#include "shelx/HklFile.h"
#include "shelx/List4File.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr float kRescaleThreshold = 100'000.0F;

/// The line of the first data row: the one that ends the header.
std::string_view FindFirstRow(TextInput& fcf) {
  while (true) {
    const std::string_view line = fcf.RequireLine("a LIST 4 row");
    if (BeginsList4(line)) return line;
  }
}

/// Raises values of no use in a refinement; these have sigmas of their own.
float RaiseSmall(float value, float& sigma) {
  if (value <= 0.0F) {
    sigma = 2.53F;
    value = 0.54F;
  }
  if (value <= 1.0F) {
    sigma = 2.82F;
    value = 0.73F;
  }
  return value;
}

}  // namespace

HklFromFcf WriteHklFromFcf(TextInput& fcf, HklScale scale, float& sigma, TextOutput& hkl) {
  HklFromFcf result;
  List4Reader rows(List4Values::kCalculated);
  std::string_view line = FindFirstRow(fcf);
  do {
    const auto row = rows.Read(line);
    if (!row) {
      result.unreadable = true;
      result.unreadable_text = line;
      break;
    }
    if (row->EndsList()) break;
    float value = RaiseSmall(row->CalculatedF2, sigma);
    if (scale == HklScale::kAsLongAsTheyFit && value > kRescaleThreshold) result.too_large = true;
    if (scale == HklScale::kHundredth) value = Store(0.01 * value);
    if (value > 1.0F) sigma = Store(std::sqrt(static_cast<double>(value)));
    if (!result.too_large) WriteHklRow({row->H, row->K, row->L, value, sigma}, hkl);
  } while (fcf.ReadLine(line));
  return result;
}

}  // namespace talven
