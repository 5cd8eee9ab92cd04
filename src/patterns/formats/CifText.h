// What tells a CIF, before any parser of CIF sees it.
#pragma once

#include <string_view>

namespace talven {

/// True for a text that begins, after remarks, with a data block, or with a data name of a diffraction pattern as our
/// own CIF does, which has no data block.
bool LooksLikeCif(std::string_view text);

/// True if a data block comes first.
bool BeginsWithDataBlock(std::string_view text);

}  // namespace talven
