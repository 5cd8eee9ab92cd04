#include <array>
#include <cmath>

#include "patterns/PatternFormats.h"
#include "patterns/formats/CpiPattern.h"
#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/GsasPattern.h"
#include "patterns/formats/IngPattern.h"
#include "patterns/formats/Riet7Pattern.h"
#include "patterns/formats/UnscramblerTable.h"
#include "patterns/formats/WritePowderCif.h"
#include "patterns/formats/WriteXrdml.h"
#include "patterns/formats/XyTable.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

/// In the order of PatternFormat.
struct WrittenFormat {
  std::string_view name;
  bool holds_wavelength;
  bool holds_steps_only;
};
constexpr std::array<WrittenFormat, 9> kFormats = {{{"ing", true, false},
                                                    {"cif", true, false},
                                                    {"cpi", true, true},
                                                    {"xy", false, false},
                                                    {"xye", false, false},
                                                    {"pat", false, true},
                                                    {"txt", false, false},
                                                    {"fxye", false, false},
                                                    {"xrdml", true, false}}};

const WrittenFormat& Of(PatternFormat format) {
  return kFormats[static_cast<std::size_t>(format)];
}

/// The counting statistics of the points, where the pattern has no sigma.
Pattern WithSigma(Pattern pattern) {
  if (!pattern.sigma.empty()) return pattern;
  for (const double count : pattern.counts) pattern.sigma.push_back(std::sqrt(std::max(count, 1.0)));
  return pattern;
}

void Check(PatternFormat format, const Pattern& pattern) {
  const std::string name(PatternFormatName(format));
  if (HoldsWavelength(format) && !pattern.wavelength)
    throw FatalIoError(name + ": expected a wavelength for its head, found none");
  if (Of(format).holds_steps_only && !pattern.step)
    throw FatalIoError(name + ": expected angles that keep one step, found others; ing, cif, xy, xye, txt, fxye and " +
                       "xrdml hold them");
}

/// One line, however the title came about.
std::string TitleOf(const Pattern& pattern, const PatternFileHead& head) {
  std::string title = pattern.title.empty() ? head.job : pattern.title;
  for (char& c : title)
    if (c >= 0 && c < ' ') c = ' ';
  return title;
}

}  // namespace

std::optional<PatternFormat> FindPatternFormat(std::string_view name) {
  for (std::size_t i = 0; i < kFormats.size(); ++i)
    if (kFormats[i].name == name) return static_cast<PatternFormat>(i);
  return std::nullopt;
}

std::string_view PatternFormatName(PatternFormat format) {
  return Of(format).name;
}

bool HoldsWavelength(PatternFormat format) {
  return Of(format).holds_wavelength;
}

bool HoldsAngles(PatternFormat format, const Pattern& pattern) {
  return !Of(format).holds_steps_only || HasExactSteps(pattern);
}

void WritePatternAs(PatternFormat format, const Pattern& pattern, const PatternFileHead& head, TextOutput& output) {
  Check(format, pattern);
  const std::string title = TitleOf(pattern, head);
  switch (format) {
    case PatternFormat::kIng:
      return WriteIng(pattern, title, output);
    case PatternFormat::kCif:
      return WritePowderCif(pattern, title, output);
    case PatternFormat::kCpi:
      return WriteCpi(pattern, title, head.date, output);
    case PatternFormat::kXy:
      return WriteXy(pattern, output);
    case PatternFormat::kXye:
      return WriteXye(WithSigma(pattern), output);
    case PatternFormat::kPat:
      return WriteRiet7(pattern, title, output);
    case PatternFormat::kTxt:
      return WriteUnscramblerTable(pattern, output);
    case PatternFormat::kFxye:
      return WriteFxye(WithSigma(pattern), title, output);
    case PatternFormat::kXrdml:
      return WriteXrdml(pattern, title, output);
  }
}

}  // namespace talven
