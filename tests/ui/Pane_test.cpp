#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "support/TestFiles.h"
#include "ui/PeakFileSelector.h"
#include "ui/Ui.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven {
namespace {

/// A terminal whose pane tells where each line is drawn and when the window is cleared.
class DrawingToolkit : public ConsoleToolkit {
 public:
  explicit DrawingToolkit(const std::string& answers = "")
      : ConsoleToolkit({"talven"}, input_, output_, messages_, false), input_(answers) {}
  void WGrTextAt(float x, float y, std::string_view text) override {
    drawn << x << ',' << y << ' ' << TrimRight(text) << '\n';
  }
  void WGrAreaClear() override { drawn << "clear\n"; }
  std::string Messages() const { return messages_.str(); }
  std::ostringstream drawn;

 private:
  std::istringstream input_;
  std::ostringstream output_;
  std::ostringstream messages_;
};

TEST(TextPane, HoldsFortyTwoLines) {
  DrawingToolkit toolkit;
  Ui ui(toolkit);
  for (int line = 1; line <= 43; ++line) ui.ShowLine(std::to_string(line));
  const std::string drawn = toolkit.drawn.str();
  EXPECT_TRUE(drawn.starts_with("5,290 1\n5,283 2\n"));
  EXPECT_TRUE(drawn.ends_with("5,10 41\n5,3 42\nclear\n5,290 43\n")) << drawn;
  toolkit.drawn.str("");
  ui.ShowLine("new page", 0);
  ui.ShowLine("next");
  EXPECT_EQ(toolkit.drawn.str(), "clear\n5,290 new page\n5,283 next\n");
}

TEST(LineBuffer, TrimLineKeepsTheLastLengthForABlankLine) {
  LineBuffer line;
  EXPECT_EQ(line.TrimLine(), 0);
  line = "a\tb\x01";
  EXPECT_EQ(line.TrimLine(), 3);
  EXPECT_EQ(line.TrimmedLine(), "a b");
  line = "";
  EXPECT_EQ(line.TrimmedLine(), "   ") << "on purpose";
  line = std::string(90, 'x');
  EXPECT_EQ(line.TrimLine(), 80);

  LineCleaner cleaner;
  Text80 text("\t12.5 \r");
  EXPECT_EQ(cleaner.CleanTextLine(text), 5);
  EXPECT_EQ(text.Trimmed(), " 12.5");
  text = "\t";
  EXPECT_EQ(cleaner.CleanTextLine(text), 5) << "on purpose";
}

TEST(SelectPeakFile, GivesTheStemOfThePath) {
  struct Case {
    const char* answers;
    const char* stem;
    std::int32_t length;
    std::int32_t status;
    const char* boxes;
  };
  const std::string blank = "[message] Spaces not allowed in Folder Names\n";
  for (const Case& c : {
           Case{"ref.LST\n", "ref", 3, 0, ""},
           {"noextension\n", "noextension", 11, 0, ""},
           {"a.b.lst\n", "a.b", 3, 0, ""},
           {"sub/x.LST\n", "x", 1, 0, ""},
           {"sub\n", "*", 1, 0, ""},
           {"my file.LST\nsub/x.LST\n", "x", 1, 0, "blank"},
           {"12345678901234567890.LST\n", "12345678901234567890", 20, 0, ""},
           {"123456789012345678901.LST\n", "", -7, kPeakFileNameTooLong, ""},
           {"cancel\n", "old", -7, kPeakFileCancelled, ""},
           {"\nref.LST\n", "old", -7, kPeakFileCancelled, ""},
       }) {
    test::TestDirectory directory;
    std::filesystem::create_directory("sub");
    DrawingToolkit toolkit(c.answers);
    Ui ui(toolkit);
    PeakFileSelector selector;
    FileStem stem("old");
    std::int32_t length = -7;
    std::int32_t status = 0;
    selector.SelectPeakFile(ui, "Find REFERENCE LST file", stem, length, status);
    EXPECT_EQ(stem.Trimmed(), c.stem) << c.answers;
    EXPECT_EQ(length, c.length) << c.answers;
    EXPECT_EQ(status, c.status) << c.answers;
    EXPECT_EQ(toolkit.Messages().find(blank) != std::string::npos, *c.boxes != '\0') << c.answers;
    const bool moved = std::string_view(c.answers).find("sub") != std::string_view::npos;
    EXPECT_EQ(std::filesystem::current_path().filename() == "sub", moved) << c.answers;
  }
}

TEST(SelectPeakFile, ClearsTheWindowIfTheStatusAsksForIt) {
  test::TestDirectory directory;
  DrawingToolkit toolkit("a.LST\n");
  Ui ui(toolkit);
  PeakFileSelector selector;
  FileStem stem;
  std::int32_t length = 0;
  std::int32_t status = kClearAfterSelection;
  selector.SelectPeakFile(ui, "t", stem, length, status);
  EXPECT_EQ(toolkit.drawn.str(), "clear\n");
}

}  // namespace
}  // namespace talven
