// An ING pattern at another wavelength and another step: rows are moved by Bragg's law, dropped on a fine grid whose
// gaps are filled, and summed into bins of the new step.
#pragma once

#include "patterns/FineGrid.h"
#include "patterns/ing/IngFile.h"

namespace talven {

/// Wavelengths in Angstrom, the step in degrees.
struct ReformatOptions {
  float OldWavelength = 0.0F;
  float NewWavelength = 0.0F;
  float NewStep = 0.0F;
};

/// On purpose nothing here is cleared at the start of a run: cells that a pattern does not set keep what the last one
/// left, and a step that suits neither grid takes the last one.
struct ReformatWork {
  /// Step of the working grid, degrees; 0 before the first run.
  float FineStep = 0.0F;
  /// First the rows of the file, later those of the output.
  ReformatArray X;
  ReformatArray Y;
  /// Angles of the cells of the working grid, degrees.
  ReformatArray FineGrid;
  CellCounts FineCounts;
};

/// A pattern moved from one wavelength to another: the spacing d of a reflection stays, so sin(theta) / wavelength
/// does.
struct WavelengthMove {
  float OldWavelength = 0.0F;
  float NewWavelength = 0.0F;

  /// True if the wavelengths differ by more than 0.001 Angstrom. Otherwise angles are not touched.
  bool MovesAngles() const;

  /// Highest theta, degrees, that may be moved: 170 unless the wavelength grows.
  float LimitAngle() const;

  /// An angle at the new wavelength: from theta to 2 theta, both in degrees.
  float Move(double theta) const;

  /// Moves both angles of a head. Where the last one has no place at the new wavelength its sine becomes 0.95.
  void MoveRange(IngHeader& header) const;
};

/// How the first half of the work went: all cells are filled, nothing of the pattern is left at the new wavelength, or
/// it goes beyond 100000 rows, cells or bins.
enum class ReformatOutcome { kFilled, kNothingLeft, kTooManyPoints };

/// Reads the rows after a head and fills the working grid with them; FineStep is chosen and not 0. The head takes the
/// range and the number of rows at the new wavelength. Throws FatalIoError for a file with too few rows; on purpose one
/// that cannot be read ends the reading, but what stood in memory counts for the rest.
ReformatOutcome FillWorkingGrid(TextInput& ing, const ReformatOptions& options, IngHeader& header, ReformatWork& work);

/// Sums a filled grid into the new pattern; `header` is what FillWorkingGrid made of it.
IngPattern BinWorkingGrid(const ReformatOptions& options, const IngHeader& header, ReformatWork& work);

}  // namespace talven
