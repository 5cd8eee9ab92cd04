// `fcalc`: calculated F squared of a model, as talven-fcalc.
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeFcalcCommand();

}  // namespace talven
