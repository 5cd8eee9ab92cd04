// XRDML 1.5 out: one measurement with one scan, whose angles stand as start and end where they keep one step, else as a
// list. Layout: see xml/XrdmlPattern.h.
#pragma once

#include <string>

#include "crystal/Pattern.h"
#include "textio/TextOutput.h"

namespace talven {

/// The pattern has a wavelength.
void WriteXrdml(const Pattern& pattern, const std::string& title, TextOutput& output);

}  // namespace talven
