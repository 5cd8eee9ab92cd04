#include "peaks/PeakListFile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "textio/Record.h"

namespace talven {
namespace {

/// What fits F11.1.
constexpr double kHighest = 999'999'999.0;

/// The power of ten by which heights are divided so that the highest fits its column.
double HeightDivisor(const std::vector<Peak>& peaks) {
  double highest = 0.0;
  for (const Peak& peak : peaks) highest = std::max(highest, std::fabs(peak.height));
  double divisor = 1.0;
  while (std::isfinite(highest) && highest / divisor > kHighest) divisor *= 10.0;
  return divisor;
}

}  // namespace

void WritePeakList(const std::vector<Peak>& peaks, std::optional<double> wavelength, TextOutput& output) {
  output.WriteLine(" Peaks: 2theta in degrees, height above the background");
  if (wavelength) {
    std::string line = "   Radiation Wavelength   ";
    char digits[40];
    line.append(digits, std::to_chars(digits, digits + sizeof digits, *wavelength).ptr);
    output.WriteLine(line);
  }
  output.WriteLine("   Marked Peaks");
  const double divisor = HeightDivisor(peaks);
  Record row;
  for (const Peak& peak : peaks) {
    row.Clear();
    row.F(peak.two_theta, 9, 3).F(peak.height / divisor, 11, 1);
    output.WriteLine(row);
  }
}

}  // namespace talven
