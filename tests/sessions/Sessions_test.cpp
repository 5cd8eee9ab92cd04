// Whole sessions of the terminal program, told by the files beside this one. The lines before the first section say
// what a session guards; then sections follow, each done in its turn:
//
//   -- write NAME --     puts the section's lines into a file of the job's directory
//   -- run ARGUMENTS --  runs the program; the lines are its answers
//   -- pane --           the pane of the last run, without the banner
//   -- boxes --          its message boxes
//   -- error --          its report of a fatal error, with exit code 1 (0 where a run has no such section)
//   -- file NAME --      a file as it has to be now; `(date)` stands for what changes from run to run, and a line with
//                        `(directory)` for the job's directory is filled to 81 columns
//   -- started --        the program started on leaving, with its arguments
//   -- gone NAME --      a file that must not be there
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

struct Section {
  std::string verb, object, lines;
};

std::vector<Section> SectionsOf(const fs::path& file) {
  std::istringstream stream(ReadFile(file));
  std::vector<Section> sections;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("-- ") && line.ends_with(" --")) {
      const std::string title = line.substr(3, line.size() - 6);
      const std::size_t end = std::min(title.find(' '), title.size());
      sections.push_back({title.substr(0, end), title.substr(std::min(end + 1, title.size())), ""});
    } else if (!sections.empty()) {
      sections.back().lines += line + "\n";
    }
  }
  return sections;
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

/// The expected text of a file, with what only this run knows put in.
std::string Completed(const std::string& expected, const std::string& actual) {
  std::istringstream stream(expected);
  std::string text;
  for (std::string line; std::getline(stream, line); text += line + "\n") {
    if (line == "(date)") line = LineOf(actual, CountLines(text) + 1);
    if (line.find("(directory)") == std::string::npos) continue;
    line = Replaced(line, "(directory)", fs::current_path().string());
    line.resize(81, ' ');
  }
  return text;
}

class Sessions : public testing::TestWithParam<std::string> {};

TEST_P(Sessions, LeaveWhatTheyTell) {
  const std::vector<Section> sections = SectionsOf(fs::path(TALVEN_SESSIONS) / (GetParam() + ".session"));
  ASSERT_FALSE(sections.empty());
  const TestDirectory directory;
  SessionResult result;
  for (auto section = sections.begin(); section != sections.end(); ++section) {
    const auto& [verb, object, lines] = *section;
    SCOPED_TRACE(verb + " " + object);
    if (verb == "write") {
      if (const fs::path path = object; path.has_parent_path()) fs::create_directories(path.parent_path());
      WriteFile(object, lines);
    } else if (verb == "run") {
      result = RunSession(WordsOf(object), lines);
      const auto next = std::find_if(section + 1, sections.end(), [](const Section& s) { return s.verb == "run"; });
      const bool is_fatal = std::any_of(section, next, [](const Section& s) { return s.verb == "error"; });
      EXPECT_EQ(result.exit_code, is_fatal ? 1 : 0) << result.messages;
    } else if (verb == "pane") {
      EXPECT_EQ(result.pane, lines);
    } else if (verb == "boxes") {
      EXPECT_EQ(result.Boxes(), lines);
    } else if (verb == "error") {
      EXPECT_TRUE(result.messages.ends_with("fatal I/O error: " + lines)) << result.messages;
    } else if (verb == "started") {
      EXPECT_EQ(directory.Started(), lines);
    } else if (verb == "file") {
      EXPECT_EQ(ReadFile(object), Completed(lines, ReadFile(object)));
    } else {
      EXPECT_EQ(verb, "gone");
      EXPECT_FALSE(Exists(object));
    }
  }
}

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(TALVEN_SESSIONS))
    if (entry.path().extension() == ".session") names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  return names;
}

INSTANTIATE_TEST_SUITE_P(, Sessions, testing::ValuesIn(Names()),
                         [](const auto& test) { return Replaced(test.param, "-", "_"); });

}  // namespace
}  // namespace talven::test
