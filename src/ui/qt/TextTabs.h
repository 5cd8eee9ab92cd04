// What there is to read: the page of progress lines, all lines since the start, and texts that were opened.
#pragma once

#include <QPlainTextEdit>
#include <QTabWidget>

#include "ui/qt/FieldHelp.h"
#include "ui/qt/PanePage.h"

namespace talven {

class TextTabs : public QTabWidget {
 public:
  explicit TextTabs(QWidget* parent = nullptr);

  PaneWidget& Pane() { return page_->Pane(); }
  /// Draws a line on the page and adds it to those since the start. One of the two comes to the front.
  void DrawLine(double x, double y, const QString& text);
  /// Closes the tab in front, if that is one that was opened; false if not.
  bool CloseFront();
  /// Goes to the page.
  void ShowPage() { setCurrentWidget(page_); }

  /// Opens a text file in a tab of its own, with a fixed-pitch font.
  void OpenText(const QString& path);
  /// Shows a text that is in no file, broken at the edge. Its tab is found again by the title.
  void ShowText(const QString& title, const QString& text);
  bool HasText(const QString& title) const;
  /// Opens a page of the manual; one line if it is not installed.
  void OpenManual(const ManualPlace& place);

 private:
  /// Adds a tab that can be closed, in the place of one of the same name.
  void AddReader(QWidget* reader, const QString& name, const QString& title);
  bool IsReader(int index) const;
  void CloseReader(int index);

  PanePage* page_;
  QPlainTextEdit* all_;
};

/// The file of a manual page: `share/doc/talven/html/NAME.html`, or `.md` in `share/doc/talven`, beside the program's
/// folder, or `docs/` of the source above it. Empty if there is none.
QString FindManualPage(std::string_view page);

}  // namespace talven
