// The question at the end of a session that still has something to do.
#pragma once

#include <QFrame>

class QPushButton;

namespace talven {

/// A bar that stands above the form, so that the values that it asks about can be read.
class LeaveBar : public QFrame {
  Q_OBJECT

 public:
  explicit LeaveBar(QWidget* parent = nullptr);
  void Ask();

 signals:
  void FinishChosen();
  void LeaveChosen();
  void StayChosen();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* finish_;
};

}  // namespace talven
