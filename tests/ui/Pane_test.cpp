#include <gtest/gtest.h>

#include <sstream>

#include "ui/Ui.h"
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

}  // namespace
}  // namespace talven
