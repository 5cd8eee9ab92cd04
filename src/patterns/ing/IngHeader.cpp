#include "patterns/ing/IngHeader.h"

#include <span>

#include "textio/FreeForm.h"

namespace talven {

IngHeader ReadIngHeader(InputFile& ing) {
  IngHeader header;
  const auto read = [&ing](float& value, std::string_view what) { RequireReals(ing, std::span(&value, 1), what); };
  ing.RequireLine("a title");
  read(header.Wavelength, "a wavelength");
  read(header.FirstAngle, "the first 2 theta");
  read(header.LastAngle, "the last 2 theta");
  read(header.Step, "a step size");
  read(header.StepTime, "a step time");
  header.PointCount = RequireWholeNumber(ing, "a number of points");
  return header;
}

}  // namespace talven
