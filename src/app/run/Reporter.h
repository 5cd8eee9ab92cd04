// What a call puts on its two streams: the table, and beside it messages and progress.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

#include "app/run/Table.h"

namespace talven {

struct RunStreams {
  std::istream& input;
  std::ostream& output;
  std::ostream& messages;
  /// A person watches the messages, so progress is shown there.
  bool shows_progress = false;
};

class Reporter {
 public:
  Reporter(const RunStreams& streams, TableStyle style, bool is_quiet)
      : streams_(streams), style_(style), is_quiet_(is_quiet) {}
  ~Reporter() { ClearProgress(); }
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;

  /// Both throw FatalIoError where standard output can't be written.
  void BeginTable(ColumnNames columns);
  void AddRow(const Row& row, std::string_view error = {});

  /// Tells what was noticed about a file, unless only failures are wanted; and a failure. Counts the failures.
  void Notice(std::string_view file, std::string_view text);
  void Fail(std::string_view file, std::string_view text);
  std::size_t FailureCount() const { return failure_count_; }

  /// How far a call has come, for a progress line that is drawn anew at most a few times a second.
  void ShowProgress(std::size_t done, std::size_t count);

 private:
  void Write(const std::string& lines);
  void Tell(std::string_view file, std::string_view text);
  void ClearProgress();

  RunStreams streams_;
  TableStyle style_;
  bool is_quiet_;
  ColumnNames columns_;
  std::size_t failure_count_ = 0;
  bool has_progress_line_ = false;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point last_shown_ = begin_;
};

/// `FILE: text` of one line, where the text may begin with the file's name already: `ABC.INS, line 4: expected ...`.
std::string MessageLine(std::string_view file, std::string_view text);

}  // namespace talven
