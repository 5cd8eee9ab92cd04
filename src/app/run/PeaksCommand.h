// `peaks`: a pattern to a list of its peaks
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakePeaksCommand();

}  // namespace talven
