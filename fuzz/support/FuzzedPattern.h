// The registry of pattern formats on input that a fuzzer makes.
#pragma once

#include <string>
#include <string_view>

namespace talven::fuzz {

/// Reads bytes as the pattern file of a name. What is read has to be sound, and to come back from each text format with
/// as many points.
void ReadAnyPattern(const std::string& name, std::string_view bytes);

}  // namespace talven::fuzz
