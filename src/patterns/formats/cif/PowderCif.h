// Powder CIF in the usual spellings, also without a data block as our own option 3 writes it.
//
//     _diffrn_radiation_wavelength 1.5406        or a loop of two; or _diffraction_radiation_wavelength
//     _pd_meas_2theta_range_min 4                with _max and _inc; or _pd_proc_2theta_range_...
//     loop_
//     _pd_meas_2theta_scan                       or _pd_proc_2theta_corrected, _pd_proc_d_spacing: in place of a range
//     _pd_meas_counts_total                      or _pd_meas_intensity_total, _pd_proc_intensity_total, _net, ...
//     4.00 20(4)                                 the standard uncertainty in brackets is sigma
//
// Names are taken without regard to case, with "." for "_" too, as newer dictionaries have them. Each data block with
// counts is a scan.
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"

namespace talven {

/// Throws FatalIoError for what is no CIF, for one without a pattern in 2theta, and for a range that does not fit its
/// counts, or less than half of the rows that the number of points tells.
PatternFile ReadPowderCif(const std::string& name, std::string_view text, const PatternReadOptions& options);

}  // namespace talven
