// From files to what a screening works with.
#pragma once

#include <optional>
#include <string>

#include "comparison/PeakList.h"
#include "screening/Candidate.h"
#include "screening/ScreenTarget.h"

namespace talven {

struct PeakListReading {
  PeakList peaks;
  /// Angstrom, where the file tells it.
  std::optional<double> wavelength;
};

/// A list of marked peaks, as the comparison reads it. Throws FatalIoError, also for a list without a peak.
PeakListReading LoadPeakList(const std::string& path);

/// The measured pattern, or list of peaks (LST), of a screening. Throws FatalIoError for a file that can't be read, and
/// as MakeScreenTarget does.
ScreenTarget LoadScreenTarget(const std::string& path, const ScreenOptions& options);

/// A candidate by the extension of its file: INS and RES hold a structure, CIF one if it has coordinates of atoms, LST
/// a list of peaks; anything else is a pattern. Throws FatalIoError for a file that can't be read, a structure without
/// atoms, a cell that has no volume or far too many lines.
Candidate LoadCandidate(const std::string& path, const ScreenTarget& target);

}  // namespace talven
