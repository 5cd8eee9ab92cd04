// Pattern files of a few points, and sessions on them.
#pragma once

#include <string>
#include <vector>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {

/// A session of job ABC that runs options in turn, each with its answers behind it: "4\n1006=3\nok\n".
inline SessionResult RunOptions(const std::vector<std::string>& options) {
  std::string answers;
  for (const std::string& option : options) answers += "1006=" + option.substr(0, 1) + "\nok" + option.substr(1) + "\n";
  return RunSession({"ABC", "C:"}, answers + "exit\n");
}

/// The text of the fatal error of a session, without its first words; empty if there was none.
inline std::string Fatal(const SessionResult& result) {
  const std::size_t at = result.messages.find("fatal I/O error: ");
  return at == std::string::npos ? "" : result.messages.substr(at + 17);
}

/// An ING file. Range is first and last angle and the step, in lines.
inline std::string Ing(const std::string& range, int count, const std::string& rows) {
  return "any title\n1.54\n" + range + "\n4.\n" + std::to_string(count) + "\n" + rows;
}

}  // namespace talven::test
