#include "ui/plot/PlotHelp.h"

#include <qcustomplot.h>

#include <QMessageBox>

#include "patterns/PatternFormats.h"

namespace talven {
namespace {

QString Translated(const char* text) {
  return QCoreApplication::translate("PlotHelp", text);
}

constexpr const char* kKeys =
    "<table cellspacing='4'>"
    "<tr><td>drag; arrows</td><td>move</td></tr>"
    "<tr><td>wheel; + and -</td><td>zoom along</td></tr>"
    "<tr><td>Ctrl and wheel; Ctrl and + or -</td><td>zoom up</td></tr>"
    "<tr><td>Shift and drag; right button and drag</td><td>zoom to a band</td></tr>"
    "<tr><td>double click; Home</td><td>show all</td></tr>"
    "<tr><td>F</td><td>fit the height</td></tr>"
    "<tr><td>Ctrl and Left or Right (with Shift: faster)</td><td>move the cursor</td></tr>"
    "<tr><td>Page Up, Page Down</td><td>cursor to the next peak or reflection</td></tr>"
    "<tr><td colspan='2'><b>With peaks shown</b></td></tr>"
    "<tr><td>click; Space</td><td>add a peak</td></tr>"
    "<tr><td>click on a mark; Delete</td><td>remove it</td></tr>"
    "<tr><td>drag a mark; Alt and Left or Right</td><td>move it</td></tr>"
    "<tr><td>Ctrl+Z, Ctrl+Shift+Z</td><td>undo, redo</td></tr>"
    "<tr><td>Ctrl+S; Ctrl+M</td><td>save the peaks; compare them with a list</td></tr>"
    "</table>";

/// Each with its licence; readers of pattern files are inside where this build has them.
QStringList Libraries() {
  QStringList libraries = {Translated("QCustomPlot %1 (GNU General Public License, version 3 or later)")
                               .arg(QLatin1String(QCUSTOMPLOT_VERSION_STR))};
#ifdef TALVEN_WITH_GEMMI
  libraries += Translated("gemmi (Mozilla Public License 2.0) with PEGTL (MIT licence)");
#endif
#ifdef TALVEN_WITH_PUGIXML
  libraries += Translated("pugixml (MIT licence)");
#endif
#ifdef TALVEN_WITH_LIBZIP
  libraries += Translated("libzip (3-clause BSD licence)");
#endif
#ifdef TALVEN_WITH_XYLIB
  libraries += Translated("xylib (GNU Lesser General Public License, version 2.1 or later)");
#endif
  return libraries;
}

}  // namespace

void ShowPlotKeys(QWidget* parent) {
  QMessageBox::information(parent, Translated("Mouse and keys"), Translated(kKeys));
}

QString PlotCredits() {
  return Translated(
             "<p>Plot and pattern files by %1.</p>"
             "<p>Talven's sources are under the MIT licence. This program is built with QCustomPlot, and so the "
             "program "
             "as it stands is under the GNU General Public License, version 3 or later.</p>")
      .arg(Libraries().join(QLatin1String(", ")));
}

QStringList PatternEndings() {
  QStringList endings;
  for (const PatternKind& kind : PatternKinds()) {
    if (!kind.missing_library.empty()) continue;
    const auto extensions = QString::fromUtf8(kind.extensions.data(), static_cast<qsizetype>(kind.extensions.size()));
    endings += extensions.toUpper().split(QLatin1Char(' '), Qt::SkipEmptyParts);
  }
  endings.removeDuplicates();
  return endings;
}

}  // namespace talven
