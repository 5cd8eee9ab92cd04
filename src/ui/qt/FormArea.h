// The part of the main window in which forms are asked.
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QToolButton>

namespace talven {

class FormDialog;

/// Shows one form at a time, centred, below a title bar of its own; scrolled where there is less room than it needs.
class FormArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit FormArea(QWidget* parent = nullptr);

  /// The parent that a form has to be made with.
  QWidget* Page() { return page_; }
  void Show(FormDialog& form);
  /// The form that is shown is about to go.
  void Clear();
  FormDialog* Form() const { return form_; }
  /// Makes the form that is shown as large as it can be in an area of some size, and gives the size in which it is then
  /// seen whole; empty for none.
  QSize FitInto(QSize area);

 signals:
  void HelpAsked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* MakeTitleBar();
  void SeeField(QWidget* field);

  QWidget* page_;
  QFrame* frame_;
  QLabel* title_;
  QToolButton* exit_;
  QLabel* idle_;
  FormDialog* form_ = nullptr;
};

}  // namespace talven
