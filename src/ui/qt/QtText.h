// Text between the logic, which holds bytes, and Qt.
#pragma once

#include <QString>
#include <QStringDecoder>
#include <string>
#include <string_view>

namespace talven {

/// UTF-8, or Latin-1 where the bytes are no UTF-8, as in titles from older files.
inline QString ToQString(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  QStringDecoder utf8(QStringDecoder::Utf8);
  const QString decoded = utf8(bytes);
  return utf8.hasError() ? QString::fromLatin1(bytes) : decoded;
}

inline std::string FromQString(const QString& text) {
  return text.toStdString();
}

}  // namespace talven
