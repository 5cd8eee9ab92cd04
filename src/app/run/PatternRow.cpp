#include "app/run/PatternRow.h"

namespace talven {

ColumnNames ConversionColumns() {
  return {"file", "format", "points", "wavelength", "outputs"};
}

Row ConversionRow(const PlannedInput& planned, const std::string& format, std::size_t points,
                  const std::optional<double>& wavelength) {
  std::string outputs;
  for (const std::string& output : planned.outputs) outputs.append(outputs.empty() ? "" : " ").append(output);
  return {Cell::Text(planned.input.Text()), Cell::Text(format), Cell::Integer(static_cast<std::int64_t>(points)),
          Cell::Optional(wavelength), Cell::Text(outputs)};
}

}  // namespace talven
