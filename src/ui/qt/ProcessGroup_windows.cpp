#include "ui/qt/ProcessGroup.h"

namespace talven {

void PutInOwnGroup(QProcess& /*process*/) {}

void EndGroup(QProcess& process, bool by_force) {
  // A program without a window does not hear a polite request.
  static_cast<void>(by_force);
  process.kill();
}

}  // namespace talven
