#include "app/run/Reporter.h"

#include <cerrno>
#include <cstdio>
#include <ostream>
#include <system_error>

#include "textio/FatalIoError.h"

namespace talven {
namespace {

/// Fewer inputs than this are done before anybody could read a progress line.
constexpr std::size_t kFewInputs = 5;

std::string MinutesAndSeconds(double seconds) {
  const auto whole = static_cast<long>(seconds + 0.5);
  const std::string rest = std::to_string(whole % 60);
  return std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

}  // namespace

void Reporter::BeginTable(ColumnNames columns) {
  columns_ = std::move(columns);
  Write(HeadLine(columns_, style_));
}

void Reporter::AddRow(const Row& row, std::string_view error) {
  Write(RowLine(columns_, row, style_, error));
}

void Reporter::Write(const std::string& lines) {
  ClearProgress();
  errno = 0;
  if (streams_.output << lines << std::flush) return;
  const std::string reason = errno != 0 ? ": " + std::generic_category().message(errno) : "";
  throw FatalIoError("standard output: cannot be written" + reason);
}

void Reporter::Notice(std::string_view file, std::string_view text) {
  if (!is_quiet_) Tell(file, text);
}

void Reporter::Fail(std::string_view file, std::string_view text) {
  ++failure_count_;
  Tell(file, text);
}

void Reporter::Tell(std::string_view file, std::string_view text) {
  ClearProgress();
  streams_.messages << MessageLine(file, text) + "\n" << std::flush;
}

void Reporter::ShowProgress(std::size_t done, std::size_t count) {
  using std::chrono::duration;
  using std::chrono::milliseconds;
  const auto now = std::chrono::steady_clock::now();
  if (!streams_.shows_progress || is_quiet_ || count < kFewInputs || now - last_shown_ < milliseconds(200)) return;
  last_shown_ = now;
  const double seconds = duration<double>(now - begin_).count();
  const double rate = static_cast<double>(done) / seconds;
  char line[120];
  std::snprintf(line, sizeof line, "%zu of %zu, %.1f/s", done, count, rate);
  std::string text = line;
  if (done > 0) text += ", " + MinutesAndSeconds(static_cast<double>(count - done) / rate) + " left";
  streams_.messages << "\r\x1b[K" + text << std::flush;
  has_progress_line_ = true;
}

void Reporter::ClearProgress() {
  if (has_progress_line_) streams_.messages << "\r\x1b[K" << std::flush;
  has_progress_line_ = false;
}

std::string MessageLine(std::string_view file, std::string_view text) {
  const std::string_view name = file.substr(file.rfind('/') + 1);
  for (const std::string_view begin : {file, name}) {
    const std::string_view rest = text.starts_with(begin) ? text.substr(begin.size()) : "";
    if (!rest.starts_with(", ") && !rest.starts_with(": ")) continue;
    text = rest.substr(2);
    break;
  }
  return OneLine(file) + ": " + OneLine(text);
}

}  // namespace talven
