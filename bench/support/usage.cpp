// Runs a program and prints the CPU seconds that it took and the most memory that it had resident, in KiB. A small
// process of its own does this, because a child's figure starts from what its parent had.  usage: bench_usage PROGRAM
// ARGUMENT...

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdio>

extern char** environ;

namespace {

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

}  // namespace

int main(int argc, char** argv) {
  pid_t child = 0;
  if (argc < 2 || posix_spawn(&child, argv[1], nullptr, nullptr, argv + 1, environ) != 0) return 2;
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) return 2;
  std::fprintf(stderr, "bench_usage %.6f %ld\n", Seconds(usage.ru_utime) + Seconds(usage.ru_stime), usage.ru_maxrss);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
