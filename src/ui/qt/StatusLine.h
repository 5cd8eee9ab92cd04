// The lower edge of the window: job, folder, what runs and for how long, and the files of the last run.
#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace talven {

/// Whole minutes and seconds, as "0:12".
QString MinutesAndSeconds(qint64 milliseconds);

class StatusLine : public QFrame {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  void SetJob(const QString& job);
  void SetFolder(const QString& folder);
  /// Something runs from now on; the time is shown beside it, and after a moment a bar that tells no end.
  void ShowRunning(const QString& what);
  /// How much of what runs is done, from 0 to 100: the bar tells that until something else runs.
  void ShowProgress(int percent);
  /// Nothing runs: what is waited for.
  void ShowWaiting(const QString& what);
  /// A lasting remark on what was written; empty for none.
  void ShowRemark(const QString& remark);
  void ShowFiles(const QStringList& paths);

 signals:
  void FolderAsked(const QString& folder);
  void FileAsked(const QString& path);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpFolder();
  void SetUpFiles();
  void PlaceParts();
  void Tell();
  void FitFolder();

  QLabel* job_;
  QPushButton* folder_button_;
  QLabel* activity_;
  QProgressBar* bar_;
  QLabel* remark_;
  QLabel* files_;
  QString folder_;
  QString running_;
  QElapsedTimer clock_;
  QTimer tick_;
};

}  // namespace talven
