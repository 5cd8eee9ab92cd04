// XRDML, versions 1 and 2, of PANalytical instruments.
//
//     <xrdMeasurements xmlns="http://www.xrdml.com/XRDMeasurement/1.5">
//       <xrdMeasurement>
//         <usedWavelength intended="K-Alpha"> <kAlpha1>, <kAlpha2>, <kBeta>, <ratioKAlpha2KAlpha1>
//         <scan scanAxis="Gonio">
//           <dataPoints>
//             <positions axis="2Theta"> <startPosition> and <endPosition>, or <listPositions>, or <commonPosition>
//             <commonCountingTime>
//             <beamAttenuationFactors>       one to a point
//             <intensities>                  version 1: counts that are corrected for attenuation
//             <counts>                       version 2: counts as they came
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"

namespace talven {

/// Throws FatalIoError for XML that is none, for scans in which 2theta stands still, and for lists of different
/// lengths.
PatternFile ReadXrdml(const std::string& name, std::string_view text, const PatternReadOptions& options);

}  // namespace talven
