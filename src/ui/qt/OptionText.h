// What the form of options says about the run that it starts.
#pragma once

#include <QString>

#include "ui/forms/FormState.h"

namespace talven {

struct RunOption {
  /// As a status line shows it.
  QString text;
  bool is_comparison = false;
  /// The run reads the job's ING file.
  bool reads_pattern = false;
};

RunOption OptionOf(const FormState& options);

}  // namespace talven
