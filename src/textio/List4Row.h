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

  bool EndsList() const { return H == 0 && K == 0 && L == 0; }
};

/// True if the status column of the narrow layout holds the letter of an observed reflection.
bool HasNarrowStatus(std::string_view line);

/// The row, if the line fits the wide layout in every field, none of them blank, and has no `o` in column 48.
std::optional<List4Row> ReadWideList4Row(std::string_view line);

/// Takes the rows of one list. In a list whose first row is wide, one that fits neither layout is no row: read by the
/// narrow columns it would give other numbers than it shows.
class List4Reader {
 public:
  /// The row by the wide layout, or else by `narrow`, which gives the row by the narrow one.
  template <typename NarrowReader>
  std::optional<List4Row> Read(std::string_view line, const NarrowReader& narrow) {
    const auto wide = ReadWideList4Row(line);
    if (is_first_) is_wide_ = wide.has_value();
    is_first_ = false;
    if (wide) return wide;
    const std::optional<List4Row> row = narrow(line);
    if (row && is_wide_ && !HasNarrowStatus(line) && !row->EndsList()) return std::nullopt;
    return row;
  }

 private:
  bool is_first_ = true;
  bool is_wide_ = false;
};

}  // namespace talven
