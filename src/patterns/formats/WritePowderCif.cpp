#include "patterns/formats/WritePowderCif.h"

#include <algorithm>
#include <cmath>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"

namespace talven {
namespace {

/// A name of a data block: printable characters without blanks.
std::string BlockName(const std::string& title) {
  std::string name;
  for (const char c : title.substr(0, 60)) name += c > ' ' && c < 127 ? c : '_';
  return name.empty() ? "pattern" : name;
}

void WriteWavelength(const Pattern& pattern, TextOutput& output) {
  const std::string wavelength = AngleText(*pattern.wavelength);
  if (!pattern.wavelength_alpha2) {
    output.WriteLine("_diffrn_radiation_wavelength " + wavelength);
    return;
  }
  output.WriteLine("loop_");
  output.WriteLine("_diffrn_radiation_wavelength_id");
  output.WriteLine("_diffrn_radiation_wavelength");
  output.WriteLine("_diffrn_radiation_wavelength_wt");
  output.WriteLine("1 " + wavelength + " 1.0");
  output.WriteLine("2 " + AngleText(*pattern.wavelength_alpha2) + ' ' + NumberText(pattern.alpha2_ratio.value_or(0.5)));
}

void WriteRange(const Pattern& pattern, TextOutput& output) {
  output.WriteLine("_pd_meas_2theta_range_min " + AngleText(pattern.two_theta.front()));
  output.WriteLine("_pd_meas_2theta_range_max " + AngleText(pattern.two_theta.back()));
  output.WriteLine("_pd_meas_2theta_range_inc " + AngleText(*pattern.step));
}

}  // namespace

void WritePowderCif(const Pattern& pattern, const std::string& title, TextOutput& output) {
  const bool has_range = HasExactSteps(pattern);
  const bool has_sigma = !pattern.sigma.empty();
  const bool is_whole =
      !has_sigma && std::ranges::all_of(pattern.counts, [](double c) { return c >= 0.0 && c == std::floor(c); });
  output.WriteLine("data_" + BlockName(title));
  WriteWavelength(pattern, output);
  if (has_range) WriteRange(pattern, output);
  if (pattern.step_time) output.WriteLine("_pd_meas_step_count_time " + NumberText(*pattern.step_time));
  output.WriteLine("_pd_meas_number_of_points " + std::to_string(pattern.PointCount()));
  output.WriteLine("loop_");
  if (!has_range) output.WriteLine("_pd_meas_2theta_scan");
  output.WriteLine(is_whole ? "_pd_meas_counts_total" : "_pd_meas_intensity_total");
  if (has_sigma) output.WriteLine("_pd_meas_intensity_total_su");
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
    std::string row;
    if (!has_range) row = AngleText(pattern.two_theta[i]) + ' ';
    row += NumberText(pattern.counts[i]);
    if (has_sigma) row += ' ' + NumberText(pattern.sigma[i]);
    output.WriteLine(row);
  }
}

}  // namespace talven
