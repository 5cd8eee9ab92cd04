// The kind of list that an FCF file says it holds.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talven {

/// For an FCF whose `_shelx_refln_list_code` is not 4: one plain line with the name in front, `ABC.FCF: holds LIST 6,
/// and options 6 and 7 read LIST 4: ...`. Nothing where the code is 4 or not told.
std::optional<std::string> HintForFcf(std::string_view name, std::string_view text);

}  // namespace talven
