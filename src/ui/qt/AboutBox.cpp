#include "ui/qt/AboutBox.h"

#include <QMessageBox>

namespace talven {

void ShowAbout(QWidget* parent, const QString& credits) {
  auto* const box = new QMessageBox(parent);
  box->setObjectName("about");
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowTitle("About Talven");
  box->setIconPixmap(parent->windowIcon().pixmap(64));
  box->setText("<b>Talven " TALVEN_VERSION "</b><br>Utility program for X-ray powder diffraction");
  box->setInformativeText(
      QString("<p>By the Talven developers, under the MIT licence.</p>"
              "<p>The window is drawn by Qt %1, under the GNU Lesser General Public License, version 3.</p>%2"
              "<p>There is no warranty, to the extent permitted by law.</p>")
          .arg(qVersion(), credits));
  box->open();
}

}  // namespace talven
