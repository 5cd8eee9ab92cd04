#include "ui/qt/DesktopSession.h"

#include <QApplication>
#include <QEventLoop>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "ui/Toolkit.h"
#include "ui/qt/AppIcon.h"
#include "ui/qt/PlainStyle.h"

namespace talven {
namespace {

/// While the session starts. Qt's only fatal message then is that it has no window system, after warnings on the same.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  std::fputs("talven: no display can be opened; talven-console is the same program on a terminal\n", stderr);
  std::_Exit(kExitRefused);
}

}  // namespace

DesktopSession::DesktopSession(char** argv) {
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  application_ = std::make_unique<QApplication>(argument_count_, argv);
  qInstallMessageHandler(usual);
  // The window system switches on the user's locale. Numbers keep their point.
  std::setlocale(LC_NUMERIC, "C");
  QGuiApplication::setDesktopFileName("talven");
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setWindowIcon(AppIcon());
  ClearUpPlainStyle(*application_);
}

DesktopSession::~DesktopSession() = default;

int RunSession(const std::function<int()>& session) {
  int exit_code = 0;
  QEventLoop loop;
  std::thread thread([&] {
    exit_code = session();
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  thread.join();
  return exit_code;
}

}  // namespace talven
