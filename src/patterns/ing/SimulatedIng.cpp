#include "patterns/ing/SimulatedIng.h"

#include "textio/LineCleaner.h"
#include "textio/Numbers.h"

namespace talven {

void WriteIngTitle(const Pattern& pattern, TextOutput& ing) {
  Text80 line(pattern.title);
  BlankControlCharacters(line);
  ing.WriteLine(line.Trimmed());
}

void WriteSimulatedIngHead(const Pattern& pattern, TextOutput& ing) {
  ing.WriteLine(Record().X(1).F(pattern.wavelength.value_or(0.0), 10, 6));
  for (const double angle : {pattern.two_theta.front(), pattern.two_theta.back(), pattern.step.value_or(0.0)})
    ing.WriteLine(Record().X(1).F(angle, 10, 3));
  ing.WriteLine(Record().X(1).I(NearestWhole(pattern.step_time.value_or(0.0)), 5));
  ing.WriteLine(Record().X(1).I(static_cast<std::int64_t>(pattern.PointCount()), 5));
}

void SimulatedIngRows::WriteNext(TextOutput& ing) {
  const auto& reflections = pattern_.reflections;
  const PatternReflection* last = nullptr;
  for (; reflection_ < reflections.size() && reflections[reflection_].point == point_; ++reflection_)
    last = &reflections[reflection_];
  Record row;
  row.X(1).F(pattern_.two_theta[point_], 8, 2).X(3).F(pattern_.counts[point_], 10, 0);
  if (last != nullptr) row.X(2).I(last->h, 4).I(last->k, 4).I(last->l, 4);
  ing.WriteLine(row);
  ++point_;
}

}  // namespace talven
