// `simulate`: reflections or a model to a pattern, as options 1 and 7.
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeSimulateCommand();

}  // namespace talven
