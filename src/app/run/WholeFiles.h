// Files that are there whole or not at all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace talven {

/// A file to be written: its path, and a text that outlives the writing.
struct WholeFile {
  std::string path;
  std::string_view content;
};

/// Writes files that take their names only when all of them have reached the disk: until then they lie in the same
/// folders under hidden names with the number of this process. Throws FatalIoError, and no hidden file is left then.
void WriteWholeFiles(const std::vector<WholeFile>& files);

/// Has the system put files that were written onto its disk, so that they are whole after a power failure too. Gives
/// the place of one for which it can't, or their number.
std::size_t SyncFiles(const std::vector<std::string>& paths);
/// Makes an empty file that was not there: neither one of somebody else nor what a link points to is taken for it.
/// False with errno set if that failed.
bool CreateNewFile(const std::string& path);
/// The number of this process.
long ProcessNumber();

}  // namespace talven
