#include "ui/qt/OutputWindow.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cstdio>

#include "ui/qt/ProcessGroup.h"
#include "ui/qt/QtText.h"
#include "ui/qt/StatusLine.h"

namespace talven {
namespace {

constexpr int kColumns = 80;
constexpr int kRows = 18;
constexpr int kLongestOutput = 10'000;
constexpr int kSignalBase = 128;
constexpr int kTick = 200;
/// Milliseconds that a program has to end by itself.
constexpr int kPatience = 2000;

}  // namespace

OutputWindow::OutputWindow()
    : head_(new QLabel(this)), button_(new QPushButton(this)), output_(new QPlainTextEdit(this)), process_(this) {
  setObjectName("output");
  head_->setAccessibleName("What runs");
  output_->setAccessibleName("Output");
  output_->setReadOnly(true);
  output_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  output_->setTabChangesFocus(true);
  output_->setMaximumBlockCount(kLongestOutput);
  output_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* const layout = new QVBoxLayout(this);
  auto* const row = new QHBoxLayout;
  row->addWidget(head_, 1);
  row->addWidget(button_);
  layout->addLayout(row);
  layout->addWidget(output_, 1);
  const QFontMetrics metrics(output_->font());
  resize(metrics.horizontalAdvance('0') * (kColumns + 4), metrics.lineSpacing() * kRows);
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.setStandardInputFile(QProcess::nullDevice());
  PutInOwnGroup(process_);
  tick_.setInterval(kTick);
  connect(&process_, &QProcess::readyRead, this, &OutputWindow::ShowOutput);
  connect(&tick_, &QTimer::timeout, this, &OutputWindow::ShowHead);
  connect(button_, &QPushButton::clicked, this, &OutputWindow::StopOrClose);
}

void OutputWindow::ShowOutput() {
  const std::string text = process_.readAll().toStdString();
  std::fputs(text.c_str(), stderr);  // What was printed is still to be read when this window has gone.
  output_->moveCursor(QTextCursor::End);
  output_->insertPlainText(ToQString(text));
  output_->moveCursor(QTextCursor::End);
}

void OutputWindow::Begin(const QString& title) {
  title_ = title;
  was_stopped_ = false;
  output_->clear();
  setWindowTitle(title);
  head_->setText(title);
  button_->setText("Close");
}

void OutputWindow::ShowHead() {
  head_->setText(title_ + ", " + MinutesAndSeconds(clock_.elapsed()));
}

void OutputWindow::Remark(const QString& text) {
  output_->moveCursor(QTextCursor::End);
  if (output_->textCursor().positionInBlock() != 0) output_->insertPlainText("\n");
  output_->insertPlainText("*** " + text + '\n');
  output_->moveCursor(QTextCursor::End);
}

std::optional<int> OutputWindow::Run(const Command& command, const QString& title, bool is_hidden) {
  Begin(title);
  clock_.start();
  QEventLoop loop;
  connect(&process_, &QProcess::finished, &loop, &QEventLoop::quit);
  process_.start(ToQString(command.program), ToQString(command.arguments).split(' ', Qt::SkipEmptyParts));
  if (!process_.waitForStarted(-1)) return std::nullopt;
  tick_.start();
  button_->setText("Stop");
  ShowHead();
  if (!is_hidden) show();
  button_->setFocus();
  if (IsRunning()) loop.exec();
  ShowOutput();
  ShowHead();
  tick_.stop();
  button_->setText("Close");
  return process_.exitStatus() == QProcess::CrashExit ? kSignalBase + process_.exitCode() : process_.exitCode();
}

void OutputWindow::StopOrClose() {
  if (!IsRunning()) {
    close();
    return;
  }
  was_stopped_ = true;
  EndGroup(process_, false);
  QTimer::singleShot(kPatience, this, [this] {
    if (IsRunning()) EndGroup(process_, true);
  });
}

void OutputWindow::Keep() {
  show();
  raise();
}

void OutputWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!IsRunning());
  if (!IsRunning()) emit Closed();
}

}  // namespace talven
