// The settings of a comparison as options, with the defaults and ranges of their form.
#pragma once

#include <CLI/App.hpp>

#include "comparison/ComparisonSettings.h"

namespace talven {

/// The settings with which the form comes up first.
ComparisonSettings FirstComparisonSettings();

/// Adds an option for each field of the form. Their callbacks throw CommandLineError.
void AddComparisonOptions(CLI::App& app, ComparisonSettings& settings);

}  // namespace talven
