// BRML of Bruker instruments: a zip of XML with the points of a scan in a file of its own.
//
//     Experiment0/RawData0.xml            one for each scan
//       <DataRoute RouteFlag="Measured">
//         <ScanInformation ScanName="LockedCoupled"> <ScanAxes> <ScanAxisInfo AxisId="TwoTheta">, ...
//         <Datum>124.8,1,9.998839261,4.999419631,4471</Datum>     time, absorption factor, the axes, counts
//         <DataViews> <RawDataView Start="4" Length="1"> ...      which value of a Datum is which
//       <WaveLengthAlpha1 Value="1.5406">
//     Experiment0/DataContainer.xml       instrument, sample
#pragma once

#include "patterns/formats/PatternFile.h"
#include "patterns/formats/zip/ZipArchive.h"

namespace talven {

bool HoldsBrml(const ZipArchive& archive);

/// Throws FatalIoError for scans that do not move 2theta, images in the place of counts, and values that cannot be
/// read.
PatternFile ReadBrml(const std::string& name, const ZipArchive& archive, const PatternReadOptions& options);

}  // namespace talven
