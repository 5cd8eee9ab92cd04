// Bruker RAW4.00, binary, little endian. Read as far as real files bear it out: one counter, counts as 32-bit reals.
//
//     offset 0   "RAW4.00", a NUL                    61   segments, each with its type and length (u32) at its front
//     type 10    metadata: name (24 characters from byte 12), text (from byte 36)
//     type 30    hardware: wavelengths alpha average, alpha 1, alpha 2, beta, ratio (five f64 from byte 72)
//     type 0     a range: no length, but 160 bytes of head
//                  +4 points (u32)    +32 scan type (24 characters)    +72 start, +80 step (f64)
//                  +92 time of a step (f32)    +136 bytes of a point (u32)    +140 bytes of segments of its own
//                then these segments and the points
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"

namespace talven {

bool LooksLikeRaw4(std::string_view bytes);

/// Throws FatalIoError for a file that ends early, points of another size, and scans that do not move 2theta. Each
/// range counts as a scan.
PatternFile ReadRaw4(const std::string& name, std::string_view bytes, const PatternReadOptions& options);

}  // namespace talven
