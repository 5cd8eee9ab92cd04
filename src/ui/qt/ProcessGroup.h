// Ending a program together with the programs that it has started.
#pragma once

#include <QProcess>

namespace talven {

/// To be called before the program starts.
void PutInOwnGroup(QProcess& process);

/// Asks the program and all that it has started to end; with `by_force` they have no say in it.
void EndGroup(QProcess& process, bool by_force);

}  // namespace talven
