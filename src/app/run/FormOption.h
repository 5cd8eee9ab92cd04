// Options whose ranges and meanings are those of the form of pattern properties.
#pragma once

#include <string>
#include <string_view>

namespace talven {

/// The value of a numeric field of the form (see FormFields.h). Throws CommandLineError for a text that the field
/// would refuse.
float PatternFieldValue(std::string_view option, int field, const std::string& text);

/// A wavelength in Angstrom: `Cu`, `Mo` or a number, as the form has them. `more` names further words that the option
/// takes, for the refusal. Throws CommandLineError.
float WavelengthValue(std::string_view option, const std::string& text, std::string_view more = "");

}  // namespace talven
