// `convert`: any pattern to other formats.
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeConvertCommand();

}  // namespace talven
