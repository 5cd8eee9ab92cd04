// The program's icon.
#pragma once

#include <QIcon>

namespace talven {

/// A powder pattern, drawn for every size that window systems ask for. The figure is that of packaging/talven.svg.
QIcon AppIcon();

}  // namespace talven
