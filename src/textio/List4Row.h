// A reflection row of a SHELX FCF file written under LIST 4, in either of its two column layouts.
//
//     narrow      1   0   2     1234.56     1240.11      3.02 o          (SHELXL-97: status letter in column 48)
//     wide        1   0   2       1234.56       1240.11         3.02 o   (since 2013: status letter in column 55)
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace talven {

struct List4Row {
  std::int32_t H = 0;
  std::int32_t K = 0;
  std::int32_t L = 0;
  float CalculatedF2 = 0.0F;
  float MeasuredF2 = 0.0F;
  float Sigma = 0.0F;
};

/// True if the status column of the narrow layout holds the letter of an observed reflection.
bool HasNarrowStatus(std::string_view line);

/// The row, if the line fits the wide layout in every field and has no `o` in column 48.
std::optional<List4Row> ReadWideList4Row(std::string_view line);

}  // namespace talven
