// A path that is broken where there is no room for it, and can be selected.
#pragma once

#include <QWidget>

namespace talven {

QWidget* MakeWrappedPath(const QString& path, QWidget* parent);

}  // namespace talven
