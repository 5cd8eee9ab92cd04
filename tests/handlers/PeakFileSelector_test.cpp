#include "handlers/PeakFileSelector.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/TestFiles.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::test {
namespace {

/// A terminal that counts how often the window is cleared.
struct CountingToolkit : ConsoleToolkit {
  explicit CountingToolkit(const std::string& answers)
      : ConsoleToolkit({"talven"}, input, output, messages, false), input(answers) {}
  void WGrAreaClear() override { ++clearings; }

  std::istringstream input;
  std::ostringstream output, messages;
  int clearings = 0;
  Ui ui{*this};
};

TEST(SelectPeakFile, GivesTheStemOfThePath) {
  const std::string twenty(20, 'a');
  using Row = std::tuple<std::string, std::string, std::int32_t, std::int32_t>;
  for (const auto& [answers, stem, length, status] :
       {Row{"ref.LST", "ref", 3, 0}, Row{"noextension", "noextension", 11, 0}, Row{"a.b.lst", "a.b", 3, 0},
        Row{"sub/x.LST", "x", 1, 0}, Row{"SUB/y.lst", "y", 1, 0}, Row{"sub", "*", 1, 0},
        Row{"my file.LST\nsub/x.LST", "x", 1, 0}, Row{twenty + ".LST", twenty, 20, 0},
        Row{twenty + "a.LST", "", -7, kPeakFileNameTooLong}, Row{"cancel", "old", -7, kPeakFileCancelled},
        Row{"\nref.LST", "old", -7, kPeakFileCancelled}, Row{"a.LST", "a", 1, kClearAfterSelection}}) {
    TestDirectory directory;
    std::filesystem::create_directory("sub");
    WriteFile("sub/Y.LST", "");
    CountingToolkit toolkit(answers);
    PeakFileSelector selector;
    FileStem found("old");
    std::int32_t found_length = -7, found_status = status == kClearAfterSelection ? status : 0;
    selector.SelectPeakFile(toolkit.ui, "Find REFERENCE LST file", found, found_length, found_status);
    EXPECT_EQ(std::tuple(found.Trimmed(), found_length, found_status), std::tuple(stem, length, status)) << answers;
    EXPECT_EQ(Count(toolkit.messages.str(), "[message] Spaces not allowed in Folder Names\n"), answers[0] == 'm');
    EXPECT_EQ(std::filesystem::equivalent(".", directory.Path() / "sub"),
              Count(answers, "sub") + Count(answers, "SUB") == 1)
        << answers;
    EXPECT_EQ(toolkit.clearings, status == kClearAfterSelection ? 1 : 0) << answers;
  }
}

}  // namespace
}  // namespace talven::test
