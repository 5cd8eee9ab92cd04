#include "ui/qt/PlotArea.h"

namespace talven {

PlotArea::PlotArea(QWidget* parent) : QStackedWidget(parent), empty_(new QLabel("No pattern yet")) {
  setObjectName("plot-area");
  setAccessibleName("Plot");
  setFrameShape(QFrame::StyledPanel);
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setWordWrap(true);
  empty_->setEnabled(false);
  addWidget(empty_);
}

void PlotArea::SetPlot(QWidget* plot) {
  setCurrentIndex(addWidget(plot));
}

}  // namespace talven
