// The text of a CIF as data blocks. Here alone the pattern formats see gemmi. This header is
// plain C++17, since not every compiler takes gemmi's own as C++20.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace talven {

struct RawCifLoop {
  std::vector<std::string> tags;
  /// Row by row, as many to a row as there are tags; quotes as they stand.
  std::vector<std::string> values;
  /// Line of the "loop_", from 1.
  std::size_t line = 0;
};

struct RawCifBlock {
  std::string name;
  std::vector<std::pair<std::string, std::string>> items;
  std::vector<RawCifLoop> loops;
};

/// Throws FatalIoError with the line for what is no CIF.
std::vector<RawCifBlock> ParseCif(const std::string& name, std::string_view text);

}  // namespace talven
