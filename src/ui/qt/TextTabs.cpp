#include "ui/qt/TextTabs.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QTabBar>
#include <QTextBrowser>

#include "ui/qt/QtText.h"

namespace talven {
namespace {

/// Beyond this a text is cut, with a line that says so.
constexpr qint64 kLongestText = 16 << 20;
constexpr int kFixedTabs = 2;

QPlainTextEdit* MakeReader(QWidget* parent) {
  auto* const reader = new QPlainTextEdit(parent);
  reader->setReadOnly(true);
  // With a cursor, so that the keyboard can read and select.
  reader->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  reader->setTabChangesFocus(true);
  reader->setLineWrapMode(QPlainTextEdit::NoWrap);
  reader->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  return reader;
}

QString ReadText(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return path + ": " + file.errorString();
  QString text = ToQString(file.read(kLongestText).toStdString());
  if (!file.atEnd()) text += "\n... (the file is longer than is shown here)\n";
  return text;
}

}  // namespace

QString FindManualPage(std::string_view page) {
  const QString program = QCoreApplication::applicationDirPath();
  for (const char* const folder :
       {"/../share/doc/talven/html/", "/../share/doc/talven/", "/docs/", "/../../../docs/"}) {
    for (const char* const ending : {".html", ".md"}) {
      const QString path = program + folder + ToQString(page) + ending;
      if (QFile::exists(path)) return QFileInfo(path).absoluteFilePath();
    }
  }
  return {};
}

TextTabs::TextTabs(QWidget* parent) : QTabWidget(parent), page_(new PanePage(this)), all_(MakeReader(this)) {
  setObjectName("texts");
  setAccessibleName("Progress");
  setDocumentMode(true);
  setTabsClosable(true);
  all_->setObjectName("all-lines");
  all_->setAccessibleName("All lines since the start");
  addTab(page_, "Page");
  addTab(all_, "All lines");
  setTabToolTip(0, "The page of progress lines");
  setTabToolTip(1, "All lines since the start");
  for (int i = 0; i < kFixedTabs; ++i) {
    tabBar()->setTabButton(i, QTabBar::RightSide, nullptr);
    tabBar()->setTabButton(i, QTabBar::LeftSide, nullptr);
  }
  connect(this, &QTabWidget::tabCloseRequested, this, &TextTabs::CloseReader);
}

void TextTabs::DrawLine(double x, double y, const QString& text) {
  if (currentWidget() != all_) ShowPage();
  Pane().DrawTextAt(x, y, text);
  page_->ShowLastLine();
  QString line = text;
  while (line.endsWith(' ')) line.chop(1);
  all_->appendPlainText(line);
}

void TextTabs::AddReader(QWidget* reader, const QString& name, const QString& title) {
  reader->setObjectName(name);
  reader->setAccessibleName(title);
  for (int i = kFixedTabs; i < count(); ++i)
    if (widget(i)->objectName() == name) CloseReader(i);
  const int index = addTab(reader, title);
  setTabToolTip(index, name);
  setCurrentIndex(index);
  reader->setFocus();
}

void TextTabs::CloseReader(int index) {
  if (!IsReader(index)) return;
  widget(index)->deleteLater();
  removeTab(index);
}

bool TextTabs::CloseFront() {
  if (!IsReader(currentIndex())) return false;
  CloseReader(currentIndex());
  ShowPage();
  return true;
}

void TextTabs::OpenText(const QString& path) {
  QPlainTextEdit* const reader = MakeReader(this);
  reader->setPlainText(ReadText(path));
  AddReader(reader, path, QFileInfo(path).fileName());
}

bool TextTabs::IsReader(int index) const {
  // The plot may be the third of the tabs.
  return index >= kFixedTabs && widget(index)->objectName() != "plot-area";
}

void TextTabs::ShowText(const QString& title, const QString& text) {
  QPlainTextEdit* const reader = MakeReader(this);
  reader->setLineWrapMode(QPlainTextEdit::WidgetWidth);
  reader->setPlainText(text);
  AddReader(reader, title, title);
}

bool TextTabs::HasText(const QString& title) const {
  for (int i = kFixedTabs; i < count(); ++i)
    if (widget(i)->objectName() == title) return true;
  return false;
}

void TextTabs::OpenManual(const ManualPlace& place) {
  const QString path = FindManualPage(place.page);
  auto* const reader = new QTextBrowser(this);
  reader->setOpenExternalLinks(true);
  if (path.isEmpty()) {
    reader->setPlainText("The manual is not installed: there is no page " + ToQString(place.page) +
                         " in share/doc/talven.");
  } else {
    reader->setSource(QUrl::fromLocalFile(path),
                      path.endsWith(".md") ? QTextDocument::MarkdownResource : QTextDocument::HtmlResource);
  }
  AddReader(reader, "manual", "Manual");
  if (reader->find(ToQString(place.word), QTextDocument::FindCaseSensitively)) {
    // The word found goes to the upper edge.
    QTextCursor found = reader->textCursor();
    found.clearSelection();
    reader->moveCursor(QTextCursor::End);
    reader->setTextCursor(found);
  }
}

}  // namespace talven
