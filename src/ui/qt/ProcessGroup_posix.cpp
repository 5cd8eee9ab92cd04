#include <unistd.h>

#include <csignal>

#include "ui/qt/ProcessGroup.h"

namespace talven {

void PutInOwnGroup(QProcess& process) {
  process.setChildProcessModifier([] { setpgid(0, 0); });
}

void EndGroup(QProcess& process, bool by_force) {
  if (process.processId() > 0) kill(-static_cast<pid_t>(process.processId()), by_force ? SIGKILL : SIGTERM);
}

}  // namespace talven
