// The small powder CIF of this suite: five data names at the start of a line and then, at once, one loop of counts,
// without angles. No parser of CIF.
//
//     _diffraction_radiation_wavelength 1.5400
//     _pd_meas_2theta_range_min         4.0000
//     _pd_meas_2theta_range_max         40.0000
//     _pd_meas_2theta_range_inc         0.0500
//     _pd_meas_step_count_time       1000.0000
//     loop_
//         _pd_meas_counts_total
//                     20.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "patterns/ing/IngFile.h"

namespace talven {

/// What the five names have given so far. A session that keeps it reads a second file with all that the first had.
struct SmallCifNames {
  IngHeader header;
  std::array<bool, 5> seen{};
};

struct SmallCif {
  /// Nothing if the file ends before all five names have been seen. The points are the whole steps of the range.
  std::optional<IngHeader> header;
  /// Fewer than the header says where the file ends early, none where the loop is not there.
  std::vector<IngRow> rows;
  /// Why the file could not be read on.
  std::optional<FatalIoError> error;
};

/// Reads as much as can be read, and adds to the names.
SmallCif ReadSmallCif(TextInput& cif, SmallCifNames& names);

void WriteSmallCif(TextOutput& cif, const IngHeader& header, std::span<const IngRow> rows);

}  // namespace talven
