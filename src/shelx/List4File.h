// The reflection rows of a SHELX FCF file written under LIST 4, in either of their two column layouts: h, k, l, then F
// squared as calculated, as measured, and its sigma.
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

/// What is wanted of the rows. On purpose no more than that is read in the narrow layout: nothing after a calculated
/// value is looked at. That one has two implied decimals where it is wanted, all others have none.
enum class List4Values { kCalculated, kMeasured };

/// True for a line that can begin a list: one with an `o` in the status column of the narrow layout, or a wide row.
bool BeginsList4(std::string_view line);

/// Takes the rows of one list. In a list whose first row is wide, one that fits neither layout is no row: read by the
/// narrow columns it would give other numbers than it shows.
class List4Reader {
 public:
  explicit List4Reader(List4Values wanted) : wanted_(wanted) {}
  /// The row, by the wide layout if the line fits that in every field, none of them blank, and has no `o` in column 48;
  /// else by the narrow one, with the wanted values alone. Nothing if a field holds no number.
  std::optional<List4Row> Read(std::string_view line);

 private:
  List4Values wanted_;
  bool is_first_ = true;
  bool is_wide_ = false;
};

/// Counts the blanks in columns 1 to 79 that stand before a character above the comma. So a text in column 1 is not
/// counted, nor one that begins with + or a bracket. A row gives kList4Tokens.
std::int32_t CountLineTokens(std::string_view line);
inline constexpr std::int32_t kList4Tokens = 7;

}  // namespace talven
