// What has to be there before a window can be: the connection to the window system.
#pragma once

#include <memory>
#include <string_view>

class QApplication;

namespace talven {

/// One for the whole process. If no window system can be reached the constructor says so in one line on standard error
/// and ends the process with exit code 2.
class DesktopSession {
 public:
  DesktopSession(int& argc, char** argv);
  ~DesktopSession();

 private:
  std::unique_ptr<QApplication> application_;
};

/// Shows an error that ends the process, until it was read.
void ShowFatalError(std::string_view text);

}  // namespace talven
