// From the job's ING pattern to the small powder CIF "NEW.CIF": five data names and one loop of counts, without angles.
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

#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Reads job.ING and replaces NEW.CIF. An ING file that ends early gives a short loop. StopFlag becomes 1 if there is
/// no ING file. Throws FatalIoError.
void IngToCif(Ui& ui, RunState& run);

}  // namespace talven
