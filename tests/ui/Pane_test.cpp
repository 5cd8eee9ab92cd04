#include <gtest/gtest.h>

#include <sstream>

#include "support/TestFiles.h"
#include "ui/PeakFileSelector.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven {
namespace {

/// A terminal whose pane tells where each line is drawn and when the window is cleared.
struct DrawingToolkit : ConsoleToolkit {
  explicit DrawingToolkit(const std::string& answers = "")
      : ConsoleToolkit({"talven"}, input, output, messages, false), input(answers) {}
  void WGrTextAt(float x, float y, std::string_view text) override {
    drawn << x << ',' << y << ' ' << TrimRight(text) << '\n';
  }
  void WGrAreaClear() override { drawn << "clear\n"; }

  std::istringstream input;
  std::ostringstream output, messages, drawn;
  Ui ui{*this};
};

TEST(TextPane, HoldsFortyTwoLines) {
  DrawingToolkit toolkit;
  for (int line = 1; line <= 43; ++line) toolkit.ui.ShowLine(std::to_string(line));
  toolkit.ui.ShowLine("new page", 0);
  const std::string drawn = toolkit.drawn.str();
  EXPECT_TRUE(drawn.starts_with("5,290 1\n5,283 2\n"));
  EXPECT_TRUE(drawn.ends_with("5,10 41\n5,3 42\nclear\n5,290 43\nclear\n5,290 new page\n")) << drawn;
}

TEST(LineBuffer, ABlankLineKeepsTheLastLength) {
  LineBuffer line;
  using Row = std::tuple<std::string, std::int32_t, const char*>;
  for (const auto& [text, length, trimmed] :
       {Row{"", 0, ""}, Row{"\ta\tb\x01\r", 4, " a b"}, Row{"\t", 4, "    "}, Row{std::string(90, ' '), 4, "    "}}) {
    line = text;
    EXPECT_EQ(line.TrimLine(), length);
    EXPECT_EQ(line.TrimmedLine(), trimmed);
  }
}

TEST(SelectPeakFile, GivesTheStemOfThePath) {
  const std::string twenty(20, 'a');
  using Row = std::tuple<std::string, std::string, std::int32_t, std::int32_t>;
  for (const auto& [answers, stem, length, status] :
       {Row{"ref.LST", "ref", 3, 0}, Row{"noextension", "noextension", 11, 0}, Row{"a.b.lst", "a.b", 3, 0},
        Row{"sub/x.LST", "x", 1, 0}, Row{"SUB/y.lst", "y", 1, 0}, Row{"sub", "*", 1, 0},
        Row{"my file.LST\nsub/x.LST", "x", 1, 0}, Row{twenty + ".LST", twenty, 20, 0},
        Row{twenty + "a.LST", "", -7, kPeakFileNameTooLong}, Row{"cancel", "old", -7, kPeakFileCancelled},
        Row{"\nref.LST", "old", -7, kPeakFileCancelled}, Row{"a.LST", "a", 1, kClearAfterSelection}}) {
    test::TestDirectory directory;
    std::filesystem::create_directory("sub");
    test::WriteFile("sub/Y.LST", "");
    DrawingToolkit toolkit(answers);
    PeakFileSelector selector;
    FileStem found("old");
    std::int32_t found_length = -7, found_status = status == kClearAfterSelection ? status : 0;
    selector.SelectPeakFile(toolkit.ui, "Find REFERENCE LST file", found, found_length, found_status);
    EXPECT_EQ(std::tuple(found.Trimmed(), found_length, found_status), std::tuple(stem, length, status)) << answers;
    EXPECT_EQ(test::Count(toolkit.messages.str(), "[message] Spaces not allowed in Folder Names\n"), answers[0] == 'm');
    EXPECT_EQ(std::filesystem::equivalent(".", directory.Path() / "sub"),
              test::Count(answers, "sub") + test::Count(answers, "SUB") == 1)
        << answers;
    EXPECT_EQ(toolkit.drawn.str(), status == kClearAfterSelection ? "clear\n" : "") << answers;
  }
}

}  // namespace
}  // namespace talven
