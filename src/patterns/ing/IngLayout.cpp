#include "patterns/ing/IngLayout.h"

namespace talven {

void WriteIngHeader(OutputFile& ing, std::string_view job_name, const IngHeader& header) {
  ing.WriteLine(Record().X(3).A(job_name));
  ing.WriteLine(Record().X(3).F(header.Wavelength, 8, 4));
  for (const float value : {header.FirstAngle, header.LastAngle, header.Step})
    ing.WriteLine(Record().X(3).F(value, 12, 3));
  ing.WriteLine(Record().X(3).F(header.StepTime, 12, 0));
  ing.WriteLine(Record().X(3).I(header.PointCount, 10));
}

void WriteIngRow(OutputFile& ing, float angle, float intensity) {
  ing.WriteLine(Record().X(1).F(angle, 8, 2).X(3).F(intensity, 10, 0));
}

void WriteIngHeaderFromCif(OutputFile& ing, const IngHeader& header) {
  for (const float value : {header.Wavelength, header.FirstAngle, header.LastAngle, header.Step, header.StepTime})
    ing.WriteLine(Record().X(3).F(value, 10, 4));
  ing.WriteLine(Record().X(3).I(header.PointCount, 14));
}

void WriteIngRowFromCif(OutputFile& ing, float angle, float intensity) {
  ing.WriteLine(Record().X(3).F(angle, 10, 3).F(intensity, 12, 0));
}

}  // namespace talven
