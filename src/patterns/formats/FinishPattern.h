// What every reader of a pattern does once its format is read: choose the scan, make the angles, look whether all is
// sound.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "patterns/formats/PatternFile.h"

namespace talven {

/// Which of so many scans is read, from 0, as the options say. Sets scan and scan_count of the file, with a notice
/// where the first of several is taken. Throws FatalIoError for a scan that is not there.
std::size_t ChooseScan(std::string_view name, std::size_t scan_count, const PatternReadOptions& options,
                       PatternFile& file);

/// Makes room for so many points, so that growing never needs more memory than they do.
void ReservePoints(std::size_t most, Pattern& pattern);

/// Adds a notice where the last line of a text without a count of its points has no end, as in a file cut short.
void NoticeCutText(std::string_view text, PatternFile& file);

/// Sets the angles of as many points as there are counts, and the step. Throws FatalIoError for a step of 0.
void SetEvenAngles(std::string_view name, double first, double step, Pattern& pattern);
/// The same between two angles. With fewer than two points the step is not known.
void SpreadAngles(std::string_view name, double first, double last, Pattern& pattern);

/// Ends the reading of a pattern: falling angles are turned round, with a notice; the step is set where it is the same
/// everywhere, to within a tenth of it, and unset where it is not. `lines` tells the lines of the points where they
/// have any. Throws FatalIoError for fewer than two points, values that are not finite, negative sigmas, angles beyond
/// 180 degrees, and angles that stand still or change their direction.
void FinishPattern(std::string_view name, PatternFile& file, std::span<const std::uint32_t> lines = {});

/// Whether all angles keep first + i * step to a millionth of a degree, so that nothing is lost without them.
bool HasExactSteps(const Pattern& pattern);

}  // namespace talven
