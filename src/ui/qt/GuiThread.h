// The session runs in a thread of its own, so that the window lives while it computes. Whatever it wants of the window
// is done in the thread of the window. The session waits for all that gives something back; what is only to be shown it
// hands over by value and goes on.
#pragma once

#include <QCoreApplication>
#include <QThread>
#include <optional>
#include <type_traits>
#include <utility>

namespace talven {

inline bool IsGuiThread() {
  return QThread::currentThread() == QCoreApplication::instance()->thread();
}

/// Runs a function in the thread of the window and gives what it returns. It must not throw.
template <typename Function>
auto OnGui(Function function) {
  using Result = std::invoke_result_t<Function>;
  if (IsGuiThread()) return function();
  if constexpr (std::is_void_v<Result>) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(function), Qt::BlockingQueuedConnection);
  } else {
    std::optional<Result> result;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { result.emplace(function()); }, Qt::BlockingQueuedConnection);
    return *std::move(result);
  }
}

/// The same without waiting. What is handed over is done in the order in which it comes, and before anything that OnGui
/// runs later.
template <typename Function>
void PostToGui(Function function) {
  if (IsGuiThread()) return function();
  QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(function), Qt::QueuedConnection);
}

}  // namespace talven
