// From files to what a screening works with. Each is named by its path from a folder on.
#pragma once

#include <string>

#include "screening/Candidate.h"
#include "screening/ScreenTarget.h"
#include "textio/Folder.h"

namespace talven {

/// The measured pattern, or list of peaks (LST), of a screening. Throws FatalIoError for a file that can't be read, and
/// as MakeScreenTarget does.
ScreenTarget LoadScreenTarget(const Folder& folder, const std::string& path, const ScreenOptions& options);

/// A candidate by the extension of its file: INS and RES hold a structure, CIF one if it has coordinates of atoms, LST
/// a list of peaks; anything else is a pattern. Throws FatalIoError for a file that can't be read, a structure without
/// atoms, a cell that has no volume or far too many lines.
Candidate LoadCandidate(const Folder& folder, const std::string& path, const ScreenTarget& target);

}  // namespace talven
