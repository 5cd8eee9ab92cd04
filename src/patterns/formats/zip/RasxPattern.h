// RASX of Rigaku instruments: a zip with a folder for each scan, Data0, Data1, ..., not all of
// them where some were taken out.
//
//     Data0/Profile0.txt                  2theta, intensity, attenuation factor, parted by tabs
//     Data0/MesurementConditions0.xml     (spelled like this) wavelengths, the axis that was moved
#pragma once

#include "patterns/formats/PatternFile.h"
#include "patterns/formats/zip/ZipArchive.h"

namespace talven {

bool HoldsRasx(const ZipArchive& archive);

/// Throws FatalIoError for scans that do not move 2theta, and for rows that cannot be read.
PatternFile ReadRasx(const std::string& name, const ZipArchive& archive, const PatternReadOptions& options);

}  // namespace talven
