#include "app/run/AllCommands.h"

#include "app/run/CompareCommand.h"
#include "app/run/ConvertCommand.h"
#include "app/run/FcalcCommand.h"
#include "app/run/InfoCommand.h"
#include "app/run/PeaksCommand.h"
#include "app/run/RankCommand.h"
#include "app/run/ReformatCommand.h"
#include "app/run/ScreenCommand.h"
#include "app/run/SimulateCommand.h"

namespace talven {

Commands AllCommands() {
  Commands commands;
  commands.push_back(MakeInfoCommand());
  commands.push_back(MakeSimulateCommand());
  commands.push_back(MakeFcalcCommand());
  commands.push_back(MakeConvertCommand());
  commands.push_back(MakeReformatCommand());
  commands.push_back(MakePeaksCommand());
  commands.push_back(MakeCompareCommand());
  commands.push_back(MakeScreenCommand());
  commands.push_back(MakeRankCommand());
  return commands;
}

}  // namespace talven
