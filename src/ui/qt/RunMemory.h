// What the toolkit of the window keeps of the session that it shows.
#pragma once

#include <QString>
#include <optional>

#include "ui/qt/RunFiles.h"

namespace talven {

/// A file that answers the questions of a start by hand.
struct OpenedFile {
  QString job;
  QString folder;
  /// The form of the job's name was answered with it.
  bool has_named_job = false;
};

struct RunMemory {
  QString job;
  bool is_job_settled = false;
  /// What runs between two questions.
  QString running = "Starting";
  /// How much of that the window was told to be done; below 0 as long as nothing is known.
  int told_percent = -1;
  std::optional<OpenedFile> opened;
  /// The files of the last run, and the one of them that the plot was told of.
  RunFiles files;
  QString shown_pattern;
};

}  // namespace talven
