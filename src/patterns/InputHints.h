// What is the matter with a file that option 2 or 9 takes in its own narrow form only: one plain line for the user.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talven {

/// For a CIF of which option 2 makes no point: `NEW.CIF: holds its pattern under other names than option 2 reads;
/// talven-run convert --to ing brings it in`. Nothing where option 2 reads a point, or fails with an error of its own.
/// `name` stands in front of the line.
std::optional<std::string> HintForCif(std::string_view name, std::string_view text);

/// For a table that option 9 refuses or misreads: the one that option 8 writes, decimal commas, remarks of other
/// programs, blank lines. Nothing where each line of its beginning is REM or begins with X and Y.
std::optional<std::string> HintForTxt(std::string_view name, std::string_view text);

}  // namespace talven
