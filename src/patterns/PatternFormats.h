// The registry of pattern formats: any file with a powder pattern in, any of our formats out.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "patterns/formats/PatternFile.h"
#include "textio/TextOutput.h"

namespace talven {

/// A kind of file that is read.
struct PatternKind {
  std::string_view name;
  /// Usual extensions, parted by blanks, without points.
  std::string_view extensions;
  /// The library whose absence keeps this build from reading it; empty where it is read.
  std::string_view missing_library;
};

/// All kinds, in the order in which they are looked for.
std::vector<PatternKind> PatternKinds();

/// Reads a pattern from the bytes of a file. The kind is told by the content first, by the extension of the name
/// second. Points rise in 2theta when they come back, in degrees; there are two at least, and all values are finite.
/// Throws FatalIoError with the name, the line where there is one, what was expected and what was found: for a file of
/// no known kind or of one that this build leaves out, a scan in which 2theta stands still, a scan number that the file
/// does not have, angles that jump back, and whatever else keeps the file from being read whole.
PatternFile ReadPattern(const std::string& name, std::string bytes, const PatternReadOptions& options = {});

/// The same for a file on disk, named in messages by its last part. Throws FatalIoError also if it cannot be read.
PatternFile ReadPatternFile(const std::filesystem::path& path, const PatternReadOptions& options = {});

/// A kind of file that is written.
enum class PatternFormat { kIng, kCif, kCpi, kXy, kXye, kPat, kTxt, kFxye, kXrdml };

/// By its name on a command line and as extension, lower case: "ing", "cif", "cpi", "xy", "xye", "pat", "txt", "fxye",
/// "xrdml". Nothing for another name.
std::optional<PatternFormat> FindPatternFormat(std::string_view name);
std::string_view PatternFormatName(PatternFormat format);
/// True for the formats whose head holds a wavelength, false where nothing would come of it.
bool HoldsWavelength(PatternFormat format);
/// False where the format has start and step alone, and the angles do not keep them to a millionth of a degree.
bool HoldsAngles(PatternFormat format, const Pattern& pattern);

/// What stands in the heads beside the pattern's own values.
struct PatternFileHead {
  /// Name of the data block, the phase or the sample, where the pattern has no title.
  std::string job;
  /// Date and time as they are to be written ("31-12-2024 at 12: 0: 0"); empty where none is.
  std::string date;
};

/// Writes a pattern in the form that other programs read right: real angles, every point, as many digits as the values
/// have. Sigma, where the format wants one and the pattern has none, is the root of the counts, 1 at least. Throws
/// FatalIoError that names the format where the pattern has no wavelength and the format holds one, and where angles
/// do not keep one step and the format (CPI, PAT) has start and step alone.
void WritePatternAs(PatternFormat format, const Pattern& pattern, const PatternFileHead& head, TextOutput& output);

}  // namespace talven
