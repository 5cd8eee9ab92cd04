// What has to be there before a window can be: the connection to the window system.
#pragma once

#include <functional>
#include <memory>

class QApplication;

namespace talven {

/// One for the whole process. If no window system can be reached the constructor says so in one line on standard error
/// and ends the process with exit code 2.
class DesktopSession {
 public:
  /// `argv` is that of the process, of which Qt sees the program's name alone.
  explicit DesktopSession(char** argv);
  ~DesktopSession();

 private:
  int argument_count_ = 1;
  std::unique_ptr<QApplication> application_;
};

/// Runs a session in a thread of its own while the window is served here, and gives what it returns. It must not throw.
int RunSession(const std::function<int()>& session);

}  // namespace talven
