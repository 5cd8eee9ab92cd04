// What a reader of measured patterns is asked for, and what it gives.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "crystal/Pattern.h"

namespace talven {

struct PatternReadOptions {
  /// Which of several scans is read, from 1. Unset: the first, and a notice where there are more.
  std::optional<int> scan;
};

struct PatternFile {
  Pattern pattern;
  /// The kind as people call it: "XRDML", "powder CIF".
  std::string format;
  /// Whole sentences for the user without the name of the file: what was chosen, turned round or passed over.
  std::vector<std::string> notices;
  /// Scans or data sets that the file holds, and the one that was read, from 1.
  int scan_count = 1;
  int scan = 1;
};

}  // namespace talven
