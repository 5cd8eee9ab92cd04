// `screen`: which of many structures, patterns or peak lists is the measured one?
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeScreenCommand();

}  // namespace talven
