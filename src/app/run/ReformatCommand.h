// `reformat`: a pattern at another wavelength or step, as option 4.
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeReformatCommand();

}  // namespace talven
