#include "ui/qt/PaneWidget.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

namespace talven::test {
namespace {

TEST(PaneWidget, AFullPageOfFullLinesFitsEverySize) {
  for (const QSize size : {QSize(300, 200), QSize(640, 650), QSize(2000, 700), QSize(500, 1900)}) {
    PaneWidget pane;
    pane.resize(size);
    for (int line = 0; line < 42; ++line) pane.DrawTextAt(5.0, 290.0 - 7.0 * line, QString(80, 'W'));
    const QRect first = pane.CharacterRect(0);
    const QRect last = pane.CharacterRect(41 * 81 + 79);
    EXPECT_TRUE(pane.rect().contains(first) && pane.rect().contains(last)) << size.width() << ' ' << last.right();
    EXPECT_NEAR(first.left(), size.width() * 0.05, 1.0);
    EXPECT_NEAR(first.center().y(), size.height() * 10.0 / 300.0, 3.0);
    EXPECT_NEAR(last.center().y(), size.height() * 297.0 / 300.0, 3.0);
    EXPECT_LE(first.height(), pane.CharacterRect(81).top() - first.top() + 2) << "lines don't cover each other";
    const QImage full = pane.grab(last).toImage();
    pane.Clear();
    EXPECT_NE(pane.grab(last).toImage(), full);
  }
}

TEST(PaneWidget, TextIsSelectedCopiedAndReadByAssistivePrograms) {
  PaneWidget pane;
  pane.resize(640, 650);
  pane.show();
  pane.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
  pane.DrawTextAt(5.0, 290.0, "  alpha   ");
  pane.DrawTextAt(5.0, 283.0, "beta");
  QTest::mousePress(&pane, Qt::LeftButton, {}, pane.CharacterRect(2).center() - QPoint(3, 0));
  QTest::mouseClick(&pane, Qt::LeftButton, Qt::ShiftModifier, pane.CharacterRect(9).center() + QPoint(1, 0));
  pane.setFocus();
  QTest::keySequence(&pane, QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "alpha\nbe");

  QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&pane);
  QAccessibleTextInterface* const text = reader->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(reader->text(QAccessible::Value), "  alpha\nbeta");
  int start = 0;
  int end = 0;
  EXPECT_EQ(text->textAtOffset(9, QAccessible::LineBoundary, &start, &end), "beta");
  text->selection(0, &start, &end);
  EXPECT_EQ(text->text(start, end), "alpha\nbe");
  EXPECT_TRUE(reader->state().readOnly);
  pane.Clear();
  EXPECT_EQ(text->characterCount(), 0);
}

}  // namespace
}  // namespace talven::test
