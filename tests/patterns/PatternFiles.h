// Pattern files of a few points, and sessions on them.
#pragma once

#include <string>
#include <vector>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {

/// A session of job ABC that runs options in turn, each with its answers behind it: "4\n1006=3\nok\n".
inline SessionResult RunOptions(const std::vector<std::string>& options) {
  std::string answers;
  for (const std::string& option : options) answers += "1006=" + option.substr(0, 1) + "\nok" + option.substr(1) + "\n";
  return RunSession({"ABC", "C:"}, answers + "exit\n");
}

/// The text of the fatal error of a session, without its first words; empty if there was none.
inline std::string Fatal(const SessionResult& result) {
  const std::size_t at = result.messages.find("fatal I/O error: ");
  return at == std::string::npos ? "" : result.messages.substr(at + 17);
}

/// A CIF for two rows from 4 degrees on, less its counts.
inline const std::string kCifHead =
    "_diffraction_radiation_wavelength 1.5406\n_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 5.1\n"
    "_pd_meas_2theta_range_inc .5\n_pd_meas_step_count_time 2.5\n";
inline const std::string kLoop = "loop_\n    _pd_meas_counts_total\n";

/// An ING file. Range is first and last angle and the step, in lines.
inline std::string Ing(const std::string& range, int count, const std::string& rows) {
  return "any title\n1.54\n" + range + "\n4.\n" + std::to_string(count) + "\n" + rows;
}

}  // namespace talven::test
