// The files of a job, found by any one of them: its model, and its lists of reflections.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/run/InputPath.h"
#include "crystal/CrystalModel.h"
#include "textio/InputFile.h"

namespace talven {

/// Path of the file of the same stem with another extension (`.HKL`), without regard to case; nothing if there is none.
std::optional<std::string> FindSibling(const InputPath& input, std::string_view extension);

/// Path of the job's model: the input itself where it is an INS, RES or CIF, else the INS, RES or CIF beside it.
/// Nothing if there is none.
std::optional<std::string> FindModelFile(const InputPath& input);

struct JobModel {
  CrystalModel model;
  std::vector<std::string> notices;
  /// Reflections that a CIF holds, as rows of an HKL file.
  std::string embedded_reflections;
};

/// Reads an INS, RES or CIF. Throws FatalIoError, also for one without atoms where these are needed.
JobModel ReadJobModel(const std::string& path, bool needs_atoms);

/// Opens a file by its path. Throws FatalIoError if there is none.
void OpenPath(const std::string& path, InputFile& file);

}  // namespace talven
