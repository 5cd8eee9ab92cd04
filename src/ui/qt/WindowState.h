// What the window remembers from one start to the next. Nothing of it changes what a run does.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <map>
#include <string>

namespace talven {

/// Held in one file, `window.json` in `$XDG_STATE_HOME/talven` or `~/.local/state/talven`. A file that is damaged or
/// can't be read counts as none, one that can't be written is not missed.
struct WindowState {
  /// Place and size of the window, as Qt keeps it.
  QByteArray geometry;
  /// Sizes of neighbouring areas whose border the user has moved, by the name of the arrangement.
  std::map<std::string, QList<int>> borders;
  /// Jobs used before, the last one first.
  QStringList jobs;

  /// Puts a job at the head of the list.
  void RememberJob(const QString& job);

  static WindowState Read();
  void Write() const;
};

/// Full name of the file.
QString WindowStateFile();

}  // namespace talven
