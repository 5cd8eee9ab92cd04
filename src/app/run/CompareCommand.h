// `compare`: peak lists against a reference.
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeCompareCommand();

}  // namespace talven
