// Which fields of a form count for nothing with what stands in the others.
#pragma once

#include <vector>

#include "ui/forms/FormState.h"

namespace talven {

struct FieldUse {
  int field = 0;
  bool is_used = true;
};

/// The fields whose use depends on others, and whether they are used now.
std::vector<FieldUse> DependentFields(const FormState& form);

}  // namespace talven
