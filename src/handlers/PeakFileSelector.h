// Asking the user for a peak list.
#pragma once

#include <cstdint>
#include <string_view>

#include "textio/FixedText.h"
#include "ui/Ui.h"

namespace talven {

/// What `SelectPeakFile` leaves in its status.
inline constexpr std::int32_t kPeakFileCancelled = 99;
inline constexpr std::int32_t kPeakFileNameTooLong = 21;
/// Going in: the pane is cleared when the file is chosen.
inline constexpr std::int32_t kClearAfterSelection = 8;

using FileStem = FixedText<20>;

/// Fetches the name of an LST file from the user.
class PeakFileSelector {
 public:
  /// Asks until the path holds no blank, moves to the file's folder and gives its name without extension. `status` is
  /// left alone on success. A name of more than 20 characters leaves a blank stem, the old length and status 21.
  void SelectPeakFile(Ui& ui, std::string_view title, FileStem& stem, std::int32_t& stem_length, std::int32_t& status);

 private:
  /// Column after the last folder separator; kept from call to call where a path has none.
  std::int32_t name_start_ = 1;
};

}  // namespace talven
