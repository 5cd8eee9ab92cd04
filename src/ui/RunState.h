// What a whole run of the program shares: the job and the flags that pass between the driver and the handlers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "textio/FixedText.h"
#include "textio/Folder.h"

namespace talven {

inline constexpr std::size_t kLongestJobName = 20;
using JobText = FixedText<kLongestJobName>;

/// Owned by the driver, handed to every handler by reference.
struct RunState {
  /// Where the files of the session lie.
  Folder folder;
  JobText JobName;
  /// Trimmed length of the job name, measured when it came in.
  std::int32_t JobNameLength = 0;
  /// The drive on which the suite is installed.
  char DriveLetter = ' ';
  /// 0 interactive, 1 started for one unattended job, 2 that job is finished.
  std::int32_t RunMode = 0;
  /// 0 off, 1 the automatic mode is running, 2 it has finished.
  std::int32_t AutoState = 0;
  /// 1 ends the option loop.
  std::int32_t StopFlag = 0;

  std::string_view TrimmedJobName() const { return JobName.First(static_cast<std::size_t>(JobNameLength)); }
  /// A file of the job: its name and an extension with its point.
  std::string JobFile(std::string_view extension) const { return std::string(TrimmedJobName()).append(extension); }
};

}  // namespace talven
