#include "ui/qt/RunFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>

namespace talven {
namespace {

/// Outputs whose names don't come from the job.
const QStringList kFixedNames = {"NEW.ING", "NEW.CIF", "SBRAG.LST", "DUMMY.HKL", "TALVEN_CORVANE.LOG"};
const QStringList kPatternEndings = {"ING", "CPI", "XY", "PAT"};

}  // namespace

void RunFiles::Begin(const QString& folder, const QString& job) {
  folder_ = folder;
  job_ = job.toUpper();
  before_ = Look();
}

std::map<QString, RunFiles::Mark> RunFiles::Look() const {
  std::map<QString, Mark> marks;
  QDirIterator files(folder_, QDir::Files);
  while (files.hasNext()) {
    const QString path = files.next();
    const QString name = files.fileName().toUpper();
    if (!kFixedNames.contains(name) && (job_.isEmpty() || !name.startsWith(job_ + '.'))) continue;
    const QFileInfo info(path);
    marks[path] = {info.lastModified(), info.size()};
  }
  return marks;
}

QStringList RunFiles::Written() const {
  QStringList written;
  if (folder_.isEmpty()) return written;
  for (const auto& [path, mark] : Look()) {
    const auto earlier = before_.find(path);
    if (mark.size > 0 && (earlier == before_.end() || earlier->second != mark)) written += path;
  }
  std::ranges::stable_sort(written, {}, [](const QString& path) {
    const qsizetype rank = kPatternEndings.indexOf(QFileInfo(path).suffix().toUpper());
    return rank < 0 ? kPatternEndings.size() : rank;
  });
  return written;
}

bool IsPatternFile(const QString& path) {
  return kPatternEndings.contains(QFileInfo(path).suffix().toUpper());
}

}  // namespace talven
