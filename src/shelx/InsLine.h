// How the lines of an INS file are written.
#pragma once

#include <string_view>

#include "textio/OutputFile.h"
#include "ui/LineBuffer.h"

namespace talven {

/// Writes the first 80 columns of a line through the line buffer: control characters as blanks, trailing blanks cut. On
/// purpose: a blank line is as long as the line written before it.
inline void WriteInsLine(LineBuffer& line, OutputFile& ins, std::string_view text) {
  line = text;
  ins.WriteLine(line.TrimmedLine());
}

}  // namespace talven
