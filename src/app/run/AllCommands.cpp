#include "app/run/AllCommands.h"

namespace talven {

Commands AllCommands() {
  Commands commands;
  return commands;
}

}  // namespace talven
