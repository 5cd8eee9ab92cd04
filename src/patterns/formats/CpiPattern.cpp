#include "patterns/formats/CpiPattern.h"

#include <cmath>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::string_view kSimulated = " from shelx HKL using Talven";
constexpr std::string_view kTitleTail = " (Talven)";
/// Writers disagree on whether the last angle of a head is one of a point.
constexpr double kMiscount = 2.0;

struct Head {
  double first = 0.0;
  double last = 0.0;
  double step = 0.0;
};

Head ReadHead(TextInput& cpi, Pattern& pattern) {
  const auto number = [&](const char* what) { return RequireLeadingNumber(cpi, cpi.RequireLine(what), what); };
  cpi.RequireLine("SIETRONICS");
  Head head;
  head.first = number("the first angle");
  head.last = number("the last angle");
  head.step = number("a step");
  cpi.RequireLine("an anode");
  const auto wavelength = LeadingNumber(cpi.RequireLine("a wavelength"));
  if (wavelength && IsWavelength(*wavelength)) pattern.wavelength = wavelength;
  cpi.RequireLine("a date");
  const auto time = LeadingNumber(cpi.RequireLine("a counting time"));
  if (time && *time > 0.0) pattern.step_time = time;
  pattern.title = TrimSpace(cpi.RequireLine("a title"));
  while (!StartsIgnoringCase(TrimSpace(cpi.RequireLine("SCANDATA")), "scandata")) {
  }
  return head;
}

void ReadCounts(TextInput& cpi, Pattern& pattern) {
  pattern.counts.reserve(cpi.Content().size() / 2);
  for (std::string_view line; cpi.ReadLine(line);)
    for (std::string_view word = NextWord(line); !word.empty(); word = NextWord(line)) {
      const auto count = ReadReal<double>(word);
      if (!count) cpi.Fail("a count", Quote(word));
      pattern.counts.push_back(*count);
    }
}

/// True where the first number of the head is the length of the title and not an angle.
bool HoldsTitleLength(const Head& head, const Pattern& pattern) {
  if (!pattern.title.ends_with(kSimulated)) return false;
  const std::size_t job_length = pattern.title.size() - kSimulated.size();
  const double point_count = (head.last - head.first) / head.step + 1.0;
  return head.first == static_cast<double>(job_length + kTitleTail.size()) &&
         std::abs(point_count - static_cast<double>(pattern.PointCount())) > 0.5;
}

/// The first angle of a simulation of so many points that ends at `top`: the number of points was cut from
/// (top - first) / step with the stored form of both.
double SimulatedFirst(double top, double step, std::size_t count) {
  const auto stored_step = static_cast<double>(static_cast<float>(step));
  for (const std::size_t steps : {count, count + 1}) {
    const double first = top - static_cast<double>(steps) * step;
    const auto stored_first = static_cast<double>(static_cast<float>(first));
    if (std::floor((top - stored_first) * (1.0 / stored_step)) == static_cast<double>(count)) return first;
  }
  return top - static_cast<double>(count) * step;
}

void SetSimulatedAngles(const TextInput& cpi, const Head& head, PatternFile& file) {
  const double first = SimulatedFirst(head.last, head.step, file.pattern.PointCount());
  SetEvenAngles(cpi.Name(), first, head.step, file.pattern);
  file.notices.push_back("The head gives the length of the title as first angle; " + AngleText(first) +
                         " follows from its end and step and the number of points, right to within one step.");
}

void SetAngles(const TextInput& cpi, const Head& head, PatternFile& file) {
  const double expected = std::floor((head.last - head.first) / head.step + 1.001);
  const double difference = std::abs(expected - static_cast<double>(file.pattern.PointCount()));
  const std::string found = std::to_string(file.pattern.PointCount());
  if (!(difference <= kMiscount))
    FailInFile(cpi.Name(), NumberText(expected) + " counts by first and last angle and step of the head", found);
  SetEvenAngles(cpi.Name(), head.first, head.step, file.pattern);
  if (difference > 0.0)
    file.notices.push_back("The head tells of " + NumberText(expected) + " points; the " + found +
                           " counts were taken.");
}

}  // namespace

bool LooksLikeCpi(std::string_view text) {
  const std::vector<std::string_view> lines = FirstLines(text, 1);
  return !lines.empty() && StartsIgnoringCase(TrimSpace(lines.front()), "sietronics");
}

PatternFile ReadCpi(TextInput& cpi) {
  PatternFile file;
  file.format = "CPI";
  const Head head = ReadHead(cpi, file.pattern);
  if (head.step == 0.0) FailInFile(cpi.Name(), "a step that is not 0", "0");
  ReadCounts(cpi, file.pattern);
  if (HoldsTitleLength(head, file.pattern)) {
    SetSimulatedAngles(cpi, head, file);
  } else {
    SetAngles(cpi, head, file);
  }
  FinishPattern(cpi.Name(), file);
  return file;
}

void WriteCpi(const Pattern& pattern, const std::string& title, const std::string& date, TextOutput& output) {
  output.WriteLine("SIETRONICS XRD SCAN");
  for (const double value : {pattern.two_theta.front(), pattern.two_theta.back(), *pattern.step})
    output.WriteLine(AngleText(value));
  output.WriteLine("Xx");
  output.WriteLine(AngleText(*pattern.wavelength));
  output.WriteLine(date);
  output.WriteLine(NumberText(pattern.step_time.value_or(1.0)));
  output.WriteLine(title);
  output.WriteLine("SCANDATA");
  for (const double count : pattern.counts) output.WriteLine(NumberText(count));
}

}  // namespace talven
