#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "support/TestFiles.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

TEST(FilesOfTheSystem, ErrorsAreToldAfterTheOpenToo) {
  const TestDirectory directory;
  InputFile input;
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(input.Open(Folder(), "/proc/self/mem")); }),
            "/proc/self/mem: cannot be read");
  OutputFile closed, deleted;
  const int next = dup(STDERR_FILENO);
  close(next);
  closed.Open(Folder(), "closed");
  close(next);
  EXPECT_EQ(ErrorOf([&] { closed.Close(); }), "closed: cannot be closed: Bad file descriptor");
  deleted.Open(Folder(), "deleted");
  fs::remove("deleted");
  EXPECT_EQ(ErrorOf([&] { deleted.CloseAndDelete(); }), "deleted: cannot be deleted");
#ifndef __SANITIZE_ADDRESS__  // whose own memory is beyond any limit
  WriteFile("large", "");
  fs::resize_file("large", 1ULL << 33U);
  const rlimit little{1U << 30U, RLIM_INFINITY}, all{RLIM_INFINITY, RLIM_INFINITY};
  setrlimit(RLIMIT_AS, &little);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(input.Open(Folder(), "large")); }),
            "large: cannot be read: there is not enough memory");
  setrlimit(RLIMIT_AS, &all);
#endif
}

}  // namespace
}  // namespace talven::test
