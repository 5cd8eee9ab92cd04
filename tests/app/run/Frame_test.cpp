// What holds for every command: inputs, outputs, guards, order, streams and exit codes, with a command that copies.
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <sstream>

#include "app/run/FileCommand.h"
#include "app/run/RunProgram.h"
#include "app/run/StopSignal.h"
#include "app/run/WholeFiles.h"
#include "app/run/WorkInOrder.h"
#include "support/TestFiles.h"
#include "textio/InputFile.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

/// Writes its input's lines into NAME.ext, and tells of an input that holds the word "notable".
class CopyCommand : public FileCommand {
 public:
  CommandText Text() const override { return {"copy", "copies", "Copies."}; }
  void AddOptions(CLI::App& app) override { app.add_option("--ext", extension_); }
  ColumnNames TableColumns() const override { return {"file", "bytes", "output"}; }

 private:
  std::vector<std::string> OutputNames(const InputPath& input) const override {
    return {input.Stem() + "." + extension_};
  }
  FileResult Work(const PlannedInput& planned) const override {
    InputFile file;
    file.OpenRequired(planned.input.Home(), planned.input.Name());
    FileResult result;
    result.outputs.push_back(std::make_unique<OutputText>());
    for (std::string_view line; file.ReadLine(line);) result.outputs.back()->WriteLine(line);
    if (file.Content().starts_with("notable")) result.notices.emplace_back("notable");
    if (file.Content().starts_with("slow")) std::this_thread::sleep_for(std::chrono::milliseconds(500));
    if (file.Content().starts_with("stop")) std::raise(SIGTERM);
    result.row = {Cell::Text(planned.input.Text()), Cell::Integer(std::ssize(file.Content())),
                  Cell::Text(planned.outputs.front())};
    return result;
  }

  std::string extension_ = "OUT";
};

struct Outcome {
  int exit_code = -1;
  std::string output, messages;
};

Outcome RunCopy(const std::string& arguments, const std::string& input = "", bool is_watched = false) {
  std::vector<std::string> words = {"talven-run"};
  std::istringstream list(arguments);
  for (std::string word; list >> word;) words.push_back(word == "''" ? "" : Replaced(word, "_", " "));
  std::istringstream in(input);
  std::ostringstream output, messages;
  Commands commands;
  commands.push_back(std::make_unique<CopyCommand>());
  const int exit_code = RunTalvenRun(words, {in, output, messages, is_watched}, std::move(commands));
  return {exit_code, output.str(), messages.str()};
}

std::string NameOf(int i) { return std::string("f").append(std::to_string(i)).append(".in"); }

struct RunFrame : testing::Test, TestDirectory {
  RunFrame() {
    for (const char* name : {"a.in", "b.in", "c.in"}) WriteFile(name, std::string(1, *name) + "\n");
  }
};

TEST_F(RunFrame, BadCommandLinesDoNothing) {
  fs::create_directory("sub");
  WriteFile("sub/a.in", "");
  WriteFile("empty.list", "\n \n");
  WriteFile("a.HKL", "");
  using Row = std::pair<std::string, std::string>;
  for (const auto& [arguments, told] :
       {Row{"", "talven-run: expected a command\n"},
        Row{"cpoy a.in", "talven-run: there is no command cpoy\n"},
        Row{"-j 2 copy a.in", "talven-run: there is no command -j: options come after it\n"},
        Row{"copy", "no input files\n"},
        Row{"copy --files-from empty.list", "empty.list: names no input files\n"},
        Row{"copy --files-from none", "--files-from: none: cannot be opened"},
        Row{"copy a.in -o ''", "-o: expected the name of a file or folder, found \"\"\n"},
        Row{"copy a.in --files-from ''", "--files-from: expected the name of a file or folder, found \"\"\n"},
        Row{"copy a.in ''", "the name of an input is empty\n"},
        Row{"copy -0 a.in", "--null requires --files-from"},
        Row{"copy --nonsense a.in", "--nonsense"},
        Row{"copy a.in -j 0", "-j: expected a whole number from 1 to 1024, found \"0\"\n"},
        Row{"copy a.in -j 2.5", "-j: expected a whole number from 1 to 1024, found \"2.5\"\n"},
        Row{"copy a.in --part 3/2", "--part: expected I/N, as 3/10 for the third of ten parts, I from 1 to N"},
        Row{"copy a.in --part 0/2", "--part: expected"},
        Row{"copy a.in --part 1/2x", "--part: expected"},
        Row{"copy a.in -j 1 -j 2", "-j"},
        Row{"copy -q -q a.in", "-q"},
        Row{"copy a.in --part", "--part: a value is missing: I/N\n"},
        Row{"copy a.in a.in", "a.OUT: would be written for a.in and again for a.in\n"},
        Row{"copy a.in sub/a.in -o new", "new/a.OUT: would be written for a.in and again for sub/a.in\n"},
        Row{"copy a.in ./b.in --ext in",
            "a.in: is an input and would be replaced: give -o DIR or --replace\n./b.in: is"},
        Row{"copy a.in --ext IN", "a.in: is an input and would be replaced"},
        Row{"copy a.in --ext hkl", "a.HKL: exists and may not be an output: give -o DIR or --replace\n"},
        Row{"copy a.in -o b.in", "-o: b.in: cannot be made, or is no folder\n"}}) {
    const Outcome outcome = RunCopy(arguments);
    EXPECT_EQ(outcome.exit_code, 2) << arguments;

    EXPECT_NE(outcome.messages.find(told), std::string::npos) << arguments << ": " << outcome.messages;
    EXPECT_EQ(outcome.output, "") << arguments;
  }
  EXPECT_EQ(Count(RunCopy("copy a.in b.in").output, "\n"), 3) << "it works after all that";
  EXPECT_FALSE(Exists("new"));
}

TEST_F(RunFrame, OutputsRowsAndMessagesInOrderForAnyNumberOfThreads) {
  std::string list, part_list;
  for (int i = 0; i < 100; ++i) {
    const std::string name = NameOf(i);
    if (i != 50) WriteFile(name, std::string(i % 7 == 0 ? "notable" : "plain") + std::string(size_t(100 - i), 'x'));
    list += name + (i % 2 == 0 ? "\r\n" : "\n\n");
  }
  const Outcome one = RunCopy("copy -j 1 --files-from - -o out", list);
  EXPECT_EQ(one.exit_code, 1);
  EXPECT_EQ(LineOf(one.output, 2), "f0.in\t107\tout/f0.OUT");
  EXPECT_EQ(LineOf(one.output, 52), "f50.in\t\t") << "a row for each input";
  EXPECT_EQ(LineOf(one.messages, 9), "f50.in: cannot be opened: expected an existing file, found none");
  EXPECT_EQ(CountLines(one.messages), 16);
  const Outcome many = RunCopy("copy -j 7 -o out --files-from -", list);
  EXPECT_EQ(many.output, one.output);
  EXPECT_EQ(many.messages, one.messages);
  EXPECT_EQ(ReadFile("out/f99.OUT"), "plainx\n");
  EXPECT_EQ(std::distance(fs::directory_iterator("out"), {}), 99) << "no temporary file stays";
  EXPECT_EQ(CountLines(RunCopy("copy -q --files-from - -o out", list).messages), 1);

  std::string rows = LineOf(one.output, 1) + "\n";
  std::vector<std::string> parts;
  for (const char* part : {"1/3", "2/3", "3/3"})
    parts.push_back(RunCopy("copy --files-from - -o out --part " + std::string(part), list).output);
  for (int i = 0; i < 100; ++i) rows += LineOf(parts[static_cast<std::size_t>(i % 3)], 2 + i / 3) + "\n";
  EXPECT_EQ(rows, one.output);
  EXPECT_EQ(RunCopy("copy a.in --part 5/9").output, "file\tbytes\toutput\n") << "more parts than inputs";
}

TEST_F(RunFrame, NamesOfAllKinds) {
  const std::string stem = "a rather long name, \xC3\xA4\xC3\xB6 \xFF and\nmore";
  WriteFile(stem + ".in", "x");
  const Outcome tabs = RunCopy("copy -0 --files-from -", stem + ".in" + '\0');
  EXPECT_EQ(tabs.output, "file\tbytes\toutput\n" + Replaced(stem + ".in\t1\t" + stem + ".OUT", "\n", "\\n") + "\n");
  EXPECT_EQ(ReadFile(stem + ".OUT"), "x\n");
  const Outcome json = RunCopy("copy -0 --files-from - --json", stem + ".in" + '\0');
  const std::string quoted = Replaced(Replaced(stem, "\n", "\\u000a"), "\xFF", "\xEF\xBF\xBD");
  EXPECT_EQ(json.output, "{\"file\": \"" + quoted + ".in\", \"bytes\": 1, \"output\": \"" + quoted + ".OUT\"}\n");
  EXPECT_EQ(LineOf(RunCopy("copy no\"ne --json").output, 1),
            "{\"file\": \"no\\\"ne\", \"bytes\": null, \"output\": null, \"error\": \"no\\\"ne: cannot be opened: "
            "expected an existing file, found none\"}");
  fs::create_directory("folder");
  EXPECT_EQ(RunCopy("copy folder").messages,
            "folder: is a folder: name the files in it, or list them with --files-from\n");
}

TEST_F(RunFrame, GuardsLetThroughWhatIsAllowed) {
  WriteFile("A.hkl", "old");
  EXPECT_EQ(LineOf(RunCopy("copy a.in --ext HKL --replace").output, 2), "a.in\t2\tA.hkl")
      << "the one file of that name";
  EXPECT_EQ(ReadFile("A.hkl"), "a\n");
  WriteFile("a.out", "old");
  EXPECT_EQ(RunCopy("copy a.in").exit_code, 0) << "a kind of our own is replaced";
  EXPECT_EQ(ReadFile("a.out"), "a\n");
  WriteFile("a.in", "  \r\nlonger");
  EXPECT_EQ(RunCopy("copy a.in --ext in --replace").exit_code, 0);
  EXPECT_EQ(ReadFile("a.in"), "  \nlonger\n");
  WriteFile("b.HKL", "of the other part");
  EXPECT_EQ(RunCopy("copy --ext HKL c.in b.in --part 1/2").exit_code, 0);
}

TEST_F(RunFrame, ResumeLeavesNewerOutputsAlone) {
  const std::string table = RunCopy("copy a.in b.in c.in --ext LST").output;
  const auto now = fs::last_write_time("a.in");
  for (const char* name : {"a.LST", "c.LST"}) {
    WriteFile(name, "kept");
    fs::last_write_time(name, now + std::chrono::seconds(name[0] == 'a' ? 1 : 0));
  }
  fs::remove("b.LST");
  EXPECT_EQ(RunCopy("copy a.in b.in c.in --ext LST --resume").exit_code, 2) << "c.LST is not newer";
  EXPECT_FALSE(Exists("b.LST"));
  const Outcome again = RunCopy("copy a.in b.in c.in --ext LST --resume --replace");
  EXPECT_EQ(again.output, table);
  EXPECT_EQ(ReadFile("a.LST") + ReadFile("b.LST") + ReadFile("c.LST"), "keptb\nc\n");
}

TEST_F(RunFrame, FullDisks) {
  if (kOnWindows) return;
  fs::create_directory("full");
  fs::create_directory("full/a.OUT");
  EXPECT_EQ(RunCopy("copy a.in -o full").messages, "a.in: full/a.OUT: cannot be written: Is a directory\n");
  EXPECT_EQ(std::distance(fs::directory_iterator("full"), {}), 1);
  WriteFile("a.in", std::string(5000, 'x'));
  WriteFile("b.OUT", "old");
  WriteFile("b.in", std::string(5000, 'x'));
  LimitFileSize(1000);
  const Outcome outcome = RunCopy("copy a.in b.in c.in");
  LimitFileSize({});
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_EQ(LineOf(outcome.messages, 1), "a.in: a.OUT: cannot be written: File too large");
  EXPECT_TRUE(!Exists("a.OUT") && ReadFile("b.OUT") == "old" && ReadFile("c.OUT") == "c\n");
  EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 6) << "no temporary file stays";
  std::ofstream full("/dev/full");
  std::istringstream input;
  std::ostringstream messages;
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"copy", "a.in"}, {"copy", "--help"}, {"--help"}, {"--version"}}) {
    Commands commands;
    commands.push_back(std::make_unique<CopyCommand>());
    std::vector<std::string> arguments = {"talven-run"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    full.clear();
    EXPECT_EQ(RunTalvenRun(arguments, {input, full, messages, false}, std::move(commands)), 1) << words.back();
  }
  EXPECT_EQ(LineOf(messages.str(), 1), "talven-run copy: standard output: cannot be written: No space left on device");
}

TEST_F(RunFrame, LinksInThePlaceOfOutputsLeadNowhere) {
  WriteFile("a.in", "text\n");
  WriteFile("precious", "mine\n");
  std::error_code error;
  for (const std::string& name : {".a.OUT." + std::to_string(ProcessNumber()) + ".tmp", std::string("a.OUT")}) {
    fs::create_symlink("precious", name, error);
    if (error) GTEST_SKIP() << "no links on this system";
  }
  EXPECT_EQ(RunCopy("copy a.in").exit_code, 0);
  EXPECT_EQ(ReadFile("precious"), "mine\n");
  EXPECT_FALSE(fs::is_symlink("a.OUT"));
}

TEST_F(RunFrame, ProgressIsDrawnOverAndLeavesNothing) {
  WriteFile("slow.in", "slow");
  const std::string messages = RunCopy("copy -j 1 a.in b.in c.in slow.in none x y", "", true).messages;
  EXPECT_EQ(messages.find("\r\x1b[K3 of 7, "), 0U) << messages;
  EXPECT_EQ(CountLines(messages), 3);
  EXPECT_EQ(Count(messages, " of 7, ") + 1, Count(messages, "\r\x1b[K"));
}

// The last one: the signal is remembered for the rest of the process.
TEST_F(RunFrame, ZASignalEndsWhatRunsAndStartsNothing) {
  std::string list = "a.in\nb.in\nstop.in\n";
  WriteFile("stop.in", "stop");
  WatchStopSignals();
  for (int i = 0; i < 100; ++i) {
    const std::string name = NameOf(i);
    WriteFile(name, "x");
    list += name + "\n";
  }
  const Outcome outcome = RunCopy("copy -j 1 --files-from -", list);
  EXPECT_EQ(outcome.exit_code, 128 + SIGTERM);
  EXPECT_EQ(CountLines(outcome.output), 4);
  EXPECT_EQ(outcome.messages, "talven-run: stopped, 3 of 103 done\n");
  EXPECT_TRUE(Exists("stop.OUT") && !Exists("f0.OUT"));
}

TEST(WorkInOrder, HoldsFewResultsAndHandsThemOverInOrder) {
  WorkInOrder<std::size_t> work;
  std::atomic<std::size_t> begun = 0;
  std::size_t next = 0;
  work.work = [&](std::size_t i) { return ++begun, i; };
  work.take = [&](std::size_t i, std::size_t result) {
    EXPECT_TRUE(i == next && result == next) << i;
    EXPECT_LE(begun, next + 16 + 2);
    ++next;
    if (i == 700) throw std::runtime_error("enough");
  };
  EXPECT_THROW(work.Run(1000, 2), std::runtime_error);
  EXPECT_EQ(next, 701U);
}

}  // namespace
}  // namespace talven::test
