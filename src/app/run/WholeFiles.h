// Files that are there whole or not at all.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "textio/TextOutput.h"

namespace talven {

/// Writes a text into a file that takes its name only when all of it has reached the disk: until then it lies in the
/// same folder under a hidden name with the number of this process. Throws FatalIoError, and nothing is left then.
void WriteWholeFile(const std::string& path, std::string_view content);

/// Has the system put a file that was written onto its disk, so that it is whole after a power failure too; false if
/// it can't.
bool SyncFile(const std::string& path);
/// The number of this process.
long ProcessNumber();

}  // namespace talven
