// The form that asks for the settings of a comparison.
#pragma once

#include "comparison/ComparisonSettings.h"
#include "ui/Ui.h"

namespace talven {

/// Shows the form, filled from the settings, and reads it back. The check boxes always come up off, and a value that a
/// field refuses leaves the form's own default. On purpose: the field of Btres is filled from `btres_refill` instead.
void AskComparisonSettings(Ui& ui, std::int32_t btres_refill, ComparisonSettings& settings);

}  // namespace talven
