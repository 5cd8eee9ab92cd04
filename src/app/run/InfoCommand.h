// `info`: what a file is.
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeInfoCommand();

}  // namespace talven
