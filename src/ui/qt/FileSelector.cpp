#include "ui/qt/FileSelector.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "ui/qt/Overlay.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

/// A pattern in the spellings that file names have where case counts.
QString BothCases(const QString& pattern) {
  if (pattern.isEmpty() || pattern == "*.*") return "*";
  const QString lower = pattern.toLower();
  return lower == pattern ? pattern : pattern + ' ' + lower;
}

}  // namespace

QStringList NameFilters(std::string_view filter, const QString& pattern) {
  const QStringList items = ToQString(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < items.size(); i += 2)
    filters += items[i].trimmed() + " (" + BothCases(items[i + 1].isEmpty() ? pattern : items[i + 1]) + ')';
  return filters;
}

std::optional<QString> SelectFile(const FileQuestion& question, QWidget* place) {
  const QString name = ToQString(question.name).trimmed();
  const bool is_pattern = name.contains('*') || name.contains('?');
  QFileDialog dialog(place != nullptr ? place->window() : nullptr, ToQString(question.title).trimmed(),
                     QDir::currentPath());
  dialog.setObjectName("files");
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(is_pattern ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setNameFilters(NameFilters(question.filter, is_pattern ? name : QString()));
  if (!is_pattern) dialog.selectFile(name);
  // The choosers of some desktops show no proposed name and accept nothing but a file that is there.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  if (place != nullptr) PlaceOver(dialog, *place);
  while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
    const QString path = dialog.selectedFiles().constFirst();
    if (QFileInfo(path).absoluteDir().exists()) return QDir::toNativeSeparators(path);
  }
  return std::nullopt;
}

}  // namespace talven
