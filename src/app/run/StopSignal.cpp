#include "app/run/StopSignal.h"

#include <atomic>
#include <csignal>
#include <initializer_list>

namespace talven {
namespace {

// A signal handler reaches nothing but a global.
std::atomic<int> stop_signal = 0;
static_assert(std::atomic<int>::is_always_lock_free);

void Remember(int number) {
  stop_signal = number;
  std::signal(number, SIG_DFL);
}

}  // namespace

void WatchStopSignals() {
  for (const int number : {SIGINT, SIGTERM})
    if (std::signal(number, Remember) == SIG_IGN) std::signal(number, SIG_IGN);
}

int StopSignal() {
  return stop_signal;
}

}  // namespace talven
