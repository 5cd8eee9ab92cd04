#include "ui/qt/StatusLine.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QUrl>
#include <QVBoxLayout>

namespace talven {
namespace {

constexpr int kTick = 200;
constexpr int kMargin = 6;
constexpr int kBarWidth = 90;
/// A run that is over before anyone has looked shows no bar.
constexpr int kQuickRun = 300;

QLabel* MakeLabel(const QString& name, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setAccessibleName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

QString MinutesAndSeconds(qint64 milliseconds) {
  const qint64 seconds = milliseconds / 1000;
  return QString::number(seconds / 60) + ':' + QString::number(seconds % 60).rightJustified(2, '0');
}

StatusLine::StatusLine(QWidget* parent)
    : QFrame(parent),
      job_(MakeLabel("Job", this)),
      folder_button_(new QPushButton(this)),
      activity_(MakeLabel("What runs", this)),
      bar_(new QProgressBar(this)),
      remark_(MakeLabel("Remark", this)),
      files_(MakeLabel("Files of the last run", this)) {
  setObjectName("status");
  setAccessibleName("Status");
  activity_->setObjectName("activity");
  job_->hide();
  remark_->setObjectName("remark");
  remark_->setWordWrap(true);
  remark_->hide();
  SetUpFolder();
  SetUpFiles();
  bar_->setObjectName("progress");
  bar_->setTextVisible(false);
  bar_->setFixedWidth(kBarWidth);
  bar_->setMaximumHeight(fontMetrics().height());
  bar_->hide();
  PlaceParts();
  connect(&tick_, &QTimer::timeout, this, &StatusLine::Tell);
  tick_.setInterval(kTick);
}

void StatusLine::SetUpFolder() {
  folder_button_->setObjectName("folder");
  folder_button_->setFlat(true);
  folder_button_->setStyleSheet("text-align: left");
  folder_button_->setCursor(Qt::PointingHandCursor);
  folder_button_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  connect(folder_button_, &QPushButton::clicked, this, [this] { emit FolderAsked(folder_); });
}

void StatusLine::SetUpFiles() {
  files_->setObjectName("files");
  files_->setTextFormat(Qt::RichText);
  files_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  files_->setWordWrap(true);
  files_->hide();
  connect(files_, &QLabel::linkActivated, this,
          [this](const QString& link) { emit FileAsked(QUrl(link).toLocalFile()); });
}

void StatusLine::PlaceParts() {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, 2, kMargin, 2);
  layout->setSpacing(1);
  auto* const line = new QHBoxLayout;
  line->setSpacing(2 * kMargin);
  line->addWidget(job_);
  line->addWidget(folder_button_, 1);
  line->addWidget(activity_);
  line->addWidget(bar_);
  layout->addLayout(line);
  layout->addWidget(remark_);
  layout->addWidget(files_);
}

void StatusLine::SetJob(const QString& job) {
  job_->setText("Job " + job);
  job_->setVisible(!job.isEmpty());
}

void StatusLine::SetFolder(const QString& folder) {
  folder_ = folder;
  const QString name = QDir::toNativeSeparators(folder);
  folder_button_->setToolTip("Opens the folder in the file manager\n" + name);
  folder_button_->setAccessibleName("Folder " + name);
  FitFolder();
}

void StatusLine::FitFolder() {
  const QString name = QDir::toNativeSeparators(folder_);
  const int room = folder_button_->width() - 4 * kMargin;
  folder_button_->setText(folder_button_->fontMetrics().elidedText(name, Qt::ElideMiddle, room));
}

void StatusLine::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  FitFolder();
}

void StatusLine::ShowRunning(const QString& what) {
  running_ = what;
  bar_->setRange(0, 0);
  bar_->setAccessibleName("Busy");
  clock_.start();
  tick_.start();
  Tell();
}

void StatusLine::ShowProgress(int percent) {
  bar_->setRange(0, 100);
  bar_->setValue(percent);
  bar_->setAccessibleName("Done so far");
}

void StatusLine::ShowWaiting(const QString& what) {
  running_.clear();
  tick_.stop();
  bar_->hide();
  activity_->setText(what);
  FitFolder();
}

void StatusLine::Tell() {
  activity_->setText(running_ + ", " + MinutesAndSeconds(clock_.elapsed()));
  bar_->setVisible(clock_.elapsed() > kQuickRun);
  FitFolder();
}

void StatusLine::ShowRemark(const QString& remark) {
  remark_->setText(remark);
  remark_->setVisible(!remark.isEmpty());
}

void StatusLine::ShowFiles(const QStringList& paths) {
  QStringList links;
  for (const QString& path : paths) {
    const QString target = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded).toHtmlEscaped();
    links += "<a href=\"" + target + "\">" + QFileInfo(path).fileName().toHtmlEscaped() + "</a>";
  }
  files_->setText(links.isEmpty() ? QString() : "Written: " + links.join(" &nbsp; "));
  files_->setVisible(!links.isEmpty());
}

}  // namespace talven
