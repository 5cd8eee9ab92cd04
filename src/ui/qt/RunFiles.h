// The files that a run has written, found by looking at the folder before and after.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <map>

namespace talven {

class RunFiles {
 public:
  /// A run on a job begins in a folder.
  void Begin(const QString& folder, const QString& job);
  /// Full paths of the job's files that are new or have changed since, patterns first, an ING before others.
  QStringList Written() const;

 private:
  struct Mark {
    QDateTime time;
    qint64 size = 0;
    bool operator==(const Mark&) const = default;
  };
  std::map<QString, Mark> Look() const;

  QString folder_;
  QString job_;
  std::map<QString, Mark> before_;
};

/// True for a file that holds a powder pattern, by its ending.
bool IsPatternFile(const QString& path);

}  // namespace talven
