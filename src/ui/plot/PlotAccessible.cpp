#include "ui/plot/PlotAccessible.h"

#include <QAccessibleWidget>
#include <array>

#include "ui/plot/PlotCanvas.h"
#include "ui/plot/PlotText.h"

namespace talven {
namespace {

enum class Part { kTitle, kAlong, kUp, kCount };

/// A title or an axis: it is drawn, and no widget of its own.
class PartAccessible : public QAccessibleInterface {
 public:
  PartAccessible(PlotCanvas& canvas, Part part) : canvas_(canvas), part_(part) {}

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&canvas_); }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::StaticText; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !canvas_.isVisible();
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    switch (kind) {
      case QAccessible::Name:
        return Name();
      case QAccessible::Value:
      case QAccessible::Description:
        return Value();
      default:
        return {};
    }
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    const QRect inside = canvas_.axisRect()->rect();
    QRect place(inside.left(), 0, inside.width(), inside.top());
    if (part_ == Part::kAlong) place.setCoords(inside.left(), inside.bottom(), inside.right(), canvas_.height() - 1);
    if (part_ == Part::kUp) place.setCoords(0, inside.top(), inside.left(), inside.bottom());
    return {canvas_.mapToGlobal(place.topLeft()), place.size()};
  }

 private:
  QString Name() const {
    const PlotModel& model = canvas_.Model();
    if (part_ == Part::kAlong) return PlotCanvas::tr("Horizontal axis: %1").arg(model.AlongName().c_str());
    if (part_ == Part::kUp) return PlotCanvas::tr("Vertical axis: %1").arg(model.UpName().c_str());
    const QString title = model.IsEmpty() ? PlotCanvas::tr("no pattern") : model.Series().front().title.c_str();
    return PlotCanvas::tr("Title: %1").arg(title);
  }

  /// What is in view of an axis.
  QString Value() const {
    if (part_ == Part::kTitle) return {};
    const bool is_along = part_ == Part::kAlong;
    const PlotRange range = is_along ? canvas_.AlongRange() : canvas_.UpRange();
    const UpAxis& up = canvas_.Model().Up();
    return PlotCanvas::tr("from %1 to %2")
        .arg(Short(is_along ? range.lower : up.Intensity(range.lower)),
             Short(is_along ? range.upper : up.Intensity(range.upper)));
  }

  PlotCanvas& canvas_;
  Part part_;
};

class PlotAccessible : public QAccessibleWidget {
 public:
  explicit PlotAccessible(PlotCanvas* canvas) : QAccessibleWidget(canvas, QAccessible::Chart) {
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      parts_[i] = QAccessible::registerAccessibleInterface(new PartAccessible(*canvas, static_cast<Part>(i)));
    }
  }
  ~PlotAccessible() override {
    for (const QAccessible::Id part : parts_) QAccessible::deleteAccessibleInterface(part);
  }

  int childCount() const override { return static_cast<int>(parts_.size()); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    return QAccessible::accessibleInterface(parts_[static_cast<std::size_t>(index)]);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (this->child(i) == child) return i;
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (child(i)->rect().contains(x, y)) return child(i);
    }
    return nullptr;
  }

 private:
  std::array<QAccessible::Id, static_cast<std::size_t>(Part::kCount)> parts_{};
};

QAccessibleInterface* MakePlotAccessible(const QString& /*class_name*/, QObject* object) {
  auto* const canvas = qobject_cast<PlotCanvas*>(object);
  return canvas == nullptr ? nullptr : new PlotAccessible(canvas);
}

}  // namespace

void InstallPlotAccessible() {
  QAccessible::installFactory(MakePlotAccessible);
}

}  // namespace talven
