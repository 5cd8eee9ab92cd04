#include "ui/qt/CommandWindow.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <cstdio>

#include "ui/qt/QtText.h"

namespace talven {
namespace {

constexpr int kColumns = 80;
constexpr int kRows = 25;
constexpr int kLongestOutput = 10'000;
constexpr int kSignalBase = 128;

}  // namespace

CommandWindow::CommandWindow(const Command& command, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      command_(command),
      output_(new QPlainTextEdit(this)) {
  setObjectName("output");
  setWindowTitle(QFileInfo(ToQString(command.program)).fileName());
  setWindowModality(Qt::ApplicationModal);
  output_->setReadOnly(true);
  output_->setMaximumBlockCount(kLongestOutput);
  output_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  output_->setLineWrapMode(QPlainTextEdit::NoWrap);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(output_);
  const QFontMetrics metrics(output_->font());
  resize(metrics.horizontalAdvance('0') * (kColumns + 3), metrics.lineSpacing() * kRows);
  connect(&process_, &QProcess::readyRead, this, &CommandWindow::ShowOutput);
}

void CommandWindow::ShowOutput() {
  output_->moveCursor(QTextCursor::End);
  const std::string text = process_.readAll().toStdString();
  std::fputs(text.c_str(), stderr);  // What was printed is still to be read when this window has gone.
  output_->insertPlainText(ToQString(text));
  output_->moveCursor(QTextCursor::End);
}

std::optional<int> CommandWindow::Run(bool is_hidden) {
  const QStringList arguments = ToQString(command_.arguments).split(' ', Qt::SkipEmptyParts);
  QEventLoop loop;
  connect(&process_, &QProcess::finished, &loop, &QEventLoop::quit);
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.setStandardInputFile(QProcess::nullDevice());
  process_.start(ToQString(command_.program), arguments);
  if (!process_.waitForStarted(-1)) return std::nullopt;
  if (!is_hidden) show();
  if (process_.state() != QProcess::NotRunning) loop.exec();
  hide();
  return process_.exitStatus() == QProcess::CrashExit ? kSignalBase + process_.exitCode() : process_.exitCode();
}

}  // namespace talven
