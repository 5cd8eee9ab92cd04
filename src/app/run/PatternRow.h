// The rows of commands that make patterns of patterns.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "app/run/OutputPlan.h"
#include "app/run/Table.h"

namespace talven {

/// file format points wavelength outputs, the outputs with blanks between.
ColumnNames ConversionColumns();
Row ConversionRow(const PlannedInput& planned, const std::string& format, std::size_t points,
                  const std::optional<double>& wavelength);

}  // namespace talven
