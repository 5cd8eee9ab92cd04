// Powder CIF out: a data block with the names of the powder dictionary, for any program that reads CIF.
//
//     data_ABC
//     _diffrn_radiation_wavelength 1.5406
//     _pd_meas_2theta_range_min 4
//     _pd_meas_2theta_range_max 39.9
//     _pd_meas_2theta_range_inc 0.05
//     _pd_meas_number_of_points 719
//     loop_
//     _pd_meas_counts_total
//     20
//
// Where angles do not keep one step they stand in the loop as _pd_meas_2theta_scan; counts that are no whole numbers
// are _pd_meas_intensity_total, their standard deviations _pd_meas_intensity_total_su.
#pragma once

#include <string>

#include "crystal/Pattern.h"
#include "textio/TextOutput.h"

namespace talven {

/// The pattern has a wavelength.
void WritePowderCif(const Pattern& pattern, const std::string& title, TextOutput& output);

}  // namespace talven
