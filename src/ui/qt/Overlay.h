// A panel in front of a part of the window, for message boxes.
#pragma once

#include <QFrame>
#include <QPointer>

namespace talven {

/// Keeps its content in the middle of a host widget, whatever size that has, and never reaches over the host's edge. It
/// goes with its host, which it does not own.
class Overlay : public QFrame {
  Q_OBJECT

 public:
  Overlay(QWidget* content, QWidget* host);
  ~Overlay() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Centre();

  QPointer<QWidget> content_;
};

}  // namespace talven
