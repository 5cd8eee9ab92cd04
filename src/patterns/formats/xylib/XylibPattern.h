// Kinds that xylib reads: RAW of Bruker and Siemens before version 4, and some of other instruments.
//
// xylib is asked for a kind that its own check tells, never to guess: its reader of free text would make a pattern of
// nearly anything.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"

namespace talven {

/// The kind's name for xylib, by the content and, for text, by the extension too; nothing where it is none of them.
std::optional<std::string> FindXylibKind(std::string_view extension, const std::string& bytes);

/// Throws FatalIoError with what xylib says to a file that it cannot read, and for scans that do not move 2theta as far
/// as the file tells that. Each block of points counts as a scan.
PatternFile ReadXylibKind(const std::string& name, const std::string& kind, const std::string& bytes,
                          const PatternReadOptions& options);

}  // namespace talven
