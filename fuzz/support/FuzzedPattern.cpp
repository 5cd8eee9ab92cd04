#include "support/FuzzedPattern.h"

#include <cmath>
#include <cstdlib>

#include "patterns/PatternFormats.h"
#include "textio/FatalIoError.h"

/// xylib loses some of what it made where a file ends too early.
extern "C" const char* __lsan_default_suppressions();   // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libxy.so";
}

namespace talven::fuzz {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void CheckPattern(const Pattern& pattern) {
  const std::size_t count = pattern.PointCount();
  Require(count >= 2 && pattern.two_theta.size() == count);
  Require(pattern.sigma.empty() || pattern.sigma.size() == count);
  for (std::size_t i = 0; i < count; ++i) {
    Require(std::isfinite(pattern.counts[i]) && std::abs(pattern.two_theta[i]) <= 180.0);
    Require(i == 0 || pattern.two_theta[i] > pattern.two_theta[i - 1]);
  }
}

void WriteAndRead(Pattern pattern) {
  if (!pattern.wavelength) pattern.wavelength = 1.5406;
  // Angles are written to ten decimals.
  for (std::size_t i = 1; i < pattern.PointCount(); ++i)
    if (pattern.two_theta[i] - pattern.two_theta[i - 1] < 1e-6) return;
  for (const char* const name : {"ing", "xy", "xye", "txt", "fxye", "cif", "xrdml"}) {
    OutputText text;
    WritePatternAs(*FindPatternFormat(name), pattern, {.job = "ABC", .date = ""}, text);
    Require(ReadPattern(std::string("ABC.") + name, text.Text()).pattern.PointCount() == pattern.PointCount());
  }
}

}  // namespace

void ReadAnyPattern(const std::string& name, std::string_view bytes) {
  PatternFile file;
  try {
    file = ReadPattern(name, std::string(bytes));
  } catch (const FatalIoError&) {
    return;
  }
  CheckPattern(file.pattern);
  WriteAndRead(file.pattern);
}

}  // namespace talven::fuzz
