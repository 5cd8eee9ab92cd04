// How a range of RAW version 1.01 was scanned, which xylib does not tell.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace talven {

/// "2Theta/Theta", "2Theta", "Omega", ... of a range, from 0; nothing for other versions, other types and short files.
std::optional<std::string> RawScanType(std::string_view bytes, std::size_t range);

/// True for the axes that leave 2theta where it is.
bool StandsStill(std::string_view scan_type);

}  // namespace talven
