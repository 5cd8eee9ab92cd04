// Numbers as plot, table and clipboard show them: with a point, whatever the language of the system is.
#pragma once

#include <QLocale>
#include <QString>

namespace talven {

inline QString Fixed(double value, int digits) {
  return QLocale::c().toString(value, 'f', digits).remove(QLatin1Char(','));
}

/// Up to six digits.
inline QString Short(double value) {
  return QString::number(value, 'g', 6);
}

}  // namespace talven
