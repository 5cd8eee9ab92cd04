// The main window: texts, form and plot beside each other, a status line, and the wish to leave.
#pragma once

#include <QMainWindow>

#include "ui/qt/Areas.h"
#include "ui/qt/StatusLine.h"
#include "ui/qt/WindowState.h"

namespace talven {

/// Closing it only asks for the end: the program comes to its end by the way of `EXIT`, which closes the window.
///
/// A plot is put in with SetPlot and told by PatternToShow which file to show: one that a run has written or read, or
/// whose name the user has clicked. As long as there is no plot, such files are opened as texts when they are clicked.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// A size below 1 and a negative position are left to what is remembered, the font and the window system.
  MainWindow(const QString& title, QRect place);
  ~MainWindow() override;

  TextTabs& Texts() { return areas_->Texts(); }
  PaneWidget& Pane() { return areas_->Texts().Pane(); }
  StatusLine& Status() { return *status_; }
  FormArea& Form() { return areas_->Form(); }
  const WindowState& State() const { return state_; }
  /// Puts a job at the head of those used before, at once: other windows may be open.
  void RememberJob(const QString& job);

  /// Takes over a widget as the plot. Files with one of these endings, or with that of a pattern of the program's own,
  /// are for it; the endings are in upper case and without a point.
  void SetPlot(QWidget* plot, const QStringList& endings = {});
  PlotArea& Plot() { return areas_->Plot(); }
  /// A new menu in front of Help.
  QMenu& AddMenu(const QString& title);
  QMenu& ViewMenu() { return *view_menu_; }
  QMenu& HelpMenu() { return *help_menu_; }
  /// Paragraphs for the box about the program, on what else is inside.
  void SetCredits(const QString& credits) { credits_ = credits; }
  /// Gives the form the room that it needs; to be called when another one is shown.
  void FitForm() { areas_->FitForm(); }
  /// False where the plot is a tab, and with it all that would come up over it.
  bool HasPlotColumn() const { return areas_->HasPlotColumn(); }
  /// Where a message box belongs.
  QWidget* MessagePlace() { return areas_->MessagePlace(); }
  /// Asks how a session that waits for a form is to end.
  void AskHowToLeave() { areas_->Leave().Ask(); }
  /// There is no form any more that the question is about.
  void TakeBackQuestion() { areas_->Leave().hide(); }

 signals:
  void LeaveAsked();
  /// The two answers to AskHowToLeave that end the session.
  void FinishChosen();
  void LeaveAtOnceChosen();
  /// A file of a job was dropped on the window or chosen from its menu.
  void JobFileChosen(const QString& path);
  void PatternToShow(const QString& path);
  /// The output of the last program is to be seen.
  void OutputAsked();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void MakeMenus();
  void PlaceWindow(QRect place);
  bool IsForPlot(const QString& path);
  void OpenFile(const QString& path);
  void OpenManual();
  void ChooseJobFile();
  void GoToNextArea();

  WindowState state_;
  Areas* areas_;
  StatusLine* status_;
  QMenu* view_menu_ = nullptr;
  QMenu* help_menu_ = nullptr;
  QStringList pattern_endings_;
  QString credits_;
};

}  // namespace talven
