#include "app/run/AllCommands.h"

#include "app/run/PeaksCommand.h"
#include "app/run/RankCommand.h"
#include "app/run/ScreenCommand.h"

namespace talven {

Commands AllCommands() {
  Commands commands;
  commands.push_back(MakePeaksCommand());
  commands.push_back(MakeScreenCommand());
  commands.push_back(MakeRankCommand());
  return commands;
}

}  // namespace talven
