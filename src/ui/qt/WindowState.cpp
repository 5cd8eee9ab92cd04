#include "ui/qt/WindowState.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>

namespace talven {
namespace {

constexpr qsizetype kMostJobs = 100;
constexpr qint64 kLongestFile = 1 << 20;

/// Two sizes; none if they are no sizes.
QList<int> Sizes(const QJsonArray& stored) {
  QList<int> sizes;
  for (const QJsonValue& size : stored)
    if (size.toInt() > 0) sizes += size.toInt();
  return sizes.size() == 2 ? sizes : QList<int>();
}

QJsonArray Stored(const QList<int>& sizes) {
  QJsonArray stored;
  for (const int size : sizes) stored += size;
  return stored;
}

}  // namespace

QString WindowStateFile() {
  // As the base directory rules have it, a relative path there counts as none.
  QString base = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(base)) base = QDir::homePath() + "/.local/state";
  return base + "/talven/window.json";
}

void WindowState::RememberJob(const QString& job) {
  if (job.isEmpty()) return;
  jobs.removeAll(job);
  jobs.prepend(job);
  jobs.resize(std::min(jobs.size(), kMostJobs));
}

WindowState WindowState::Read() {
  WindowState state;
  QFile file(WindowStateFile());
  if (!file.open(QIODevice::ReadOnly)) return state;
  const QJsonObject stored = QJsonDocument::fromJson(file.read(kLongestFile)).object();
  state.geometry = QByteArray::fromBase64(stored["geometry"].toString().toLatin1());
  const QJsonObject borders = stored["borders"].toObject();
  for (auto i = borders.begin(); i != borders.end(); ++i) {
    const QList<int> sizes = Sizes(i.value().toArray());
    if (!sizes.isEmpty()) state.borders[i.key().toStdString()] = sizes;
  }
  for (const QJsonValue& job : stored["jobs"].toArray())
    if (!job.toString().isEmpty() && state.jobs.size() < kMostJobs) state.jobs += job.toString();
  return state;
}

void WindowState::Write() const {
  QJsonObject stored_borders;
  for (const auto& [name, border] : borders) stored_borders[QString::fromStdString(name)] = Stored(border);
  const QJsonObject stored{{"geometry", QString::fromLatin1(geometry.toBase64())},
                           {"borders", stored_borders},
                           {"jobs", QJsonArray::fromStringList(jobs)}};
  QDir().mkpath(QFileInfo(WindowStateFile()).path());
  QSaveFile file(WindowStateFile());
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(QJsonDocument(stored).toJson());
  file.commit();
}

}  // namespace talven
