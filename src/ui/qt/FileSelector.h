// The file selector.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <optional>
#include <string_view>

namespace talven {

/// What to ask the user for.
struct FileQuestion {
  /// Pairs of description and pattern, each item ended by a vertical bar.
  std::string_view filter;
  /// The name that stands there at first. One with a wildcard is no name but restricts the list.
  std::string_view name;
  std::string_view title;
};

/// The filters of a file dialog, as "SHELX file .HKL (*.HKL *.hkl)". `pattern` is the one of a description that has
/// none; blank for all files.
QStringList NameFilters(std::string_view filter, const QString& pattern);

/// Asks for a file in the current directory, and gives its full path; nothing after a cancel. Where a name is proposed
/// it need not exist. The selector comes up over a part of a window, if there is one.
std::optional<QString> SelectFile(const FileQuestion& question, QWidget* place);

}  // namespace talven
