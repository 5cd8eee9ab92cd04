// The user's or the system's wish that the program end.
#pragma once

namespace talven {

/// From here on SIGINT and SIGTERM are remembered, and the second one of them ends the process at once.
void WatchStopSignals();
/// The number of the signal that came; 0 if none has.
int StopSignal();

}  // namespace talven
