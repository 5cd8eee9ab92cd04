// `rank`: joins the tables of screen --part into one ranking
#pragma once

#include <memory>

#include "app/run/BatchCommand.h"

namespace talven {

std::unique_ptr<BatchCommand> MakeRankCommand();

}  // namespace talven
