// The working grid of the reformatter: cells of 0.01 or 0.005 degrees on which the rows of a pattern are dropped, whose
// gaps are filled, and which are summed into bins of the new step.
#pragma once

#include <span>

#include "textio/Array1.h"

namespace talven {

/// Capacity for rows, cells and bins alike.
inline constexpr std::int32_t kLargestReformatCount = 100'000;

/// Reals of rows, cells or bins.
using ReformatArray = Array1<float, kLargestReformatCount>;

/// Counts of the cells 1 to 100000, and a cell 0 that is always 0.
class CellCounts {
 public:
  float& operator[](std::int32_t cell) { return cells_[cell + 1]; }
  const float& operator[](std::int32_t cell) const { return cells_[cell + 1]; }

 private:
  Array1<float, kLargestReformatCount + 1> cells_;
};

/// Sets FineStep to the grid for a pattern of this step, degrees: 0.01 where the step is a multiple of it, else 0.005
/// where it is one of that, else what it was.
void ChooseFineStep(float step, float& FineStep);

/// Sets the angles of the first cells, from the first angle of the pattern. False if there are more than 100000.
bool BuildFineGrid(float first_angle, float last_angle, float FineStep, ReformatArray& FineGrid);

/// Sets the cells that the rows 1 to row_count fall into; of several rows in a cell the last one counts. On purpose a
/// row lies one cell below the one of its own angle. False if a row falls beyond cell 100000.
bool PlaceRows(const ReformatArray& X, const ReformatArray& Y, std::int32_t row_count, float first_angle,
               float FineStep, CellCounts& FineCounts);

/// Fills runs of empty cells between set ones, up to cell_count. A run with more than 200 cells to the next set cell,
/// or with none after it, ends the filling.
void FillGaps(CellCounts& FineCounts, std::int32_t cell_count);

/// Sums the cells 1 to cell_count into bins of a step, the first from first_angle on. A cell at the very edge of a bin
/// is in neither. X becomes the upper edges, Y the sums.
void BinCells(const ReformatArray& FineGrid, const CellCounts& FineCounts, std::int32_t cell_count, double first_angle,
              double step, std::int32_t bin_count, ReformatArray& X, ReformatArray& Y);

/// Scales the magnitudes so that the smallest that is not zero becomes 100 if it was above 100, else 2. Zeros become
/// that value too.
void Rescale(std::span<float> counts);

}  // namespace talven
