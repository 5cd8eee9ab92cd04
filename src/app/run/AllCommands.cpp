#include "app/run/AllCommands.h"

#include "app/run/CompareCommand.h"
#include "app/run/ConvertCommand.h"
#include "app/run/FcalcCommand.h"
#include "app/run/InfoCommand.h"
#include "app/run/ReformatCommand.h"
#include "app/run/SimulateCommand.h"

namespace talven {

Commands AllCommands() {
  Commands commands;
  commands.push_back(MakeInfoCommand());
  commands.push_back(MakeSimulateCommand());
  commands.push_back(MakeFcalcCommand());
  commands.push_back(MakeConvertCommand());
  commands.push_back(MakeReformatCommand());
  commands.push_back(MakeCompareCommand());
  return commands;
}

}  // namespace talven
