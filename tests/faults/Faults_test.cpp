// Every option under faults of its inputs, its disk and its streams, stopped in the middle, and on files as other
// programs write them.
#include <gtest/gtest.h>
#include <regex.h>

#include <clocale>
#include <csignal>
#include <locale>
#include <map>
#include <sstream>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;
using Contents = std::map<std::string, std::string>;

/// True if a text holds an extended POSIX pattern, whatever the case.
bool Matches(const std::string& text, const std::string& pattern) {
  regex_t compiled{};
  EXPECT_EQ(regcomp(&compiled, pattern.c_str(), REG_EXTENDED | REG_ICASE | REG_NOSUB), 0) << pattern;
  const bool found = regexec(&compiled, text.c_str(), 0, nullptr, 0) == 0;
  regfree(&compiled);
  return found;
}

/// A text without the lines that tell time or place.
std::string Lasting(const std::string& text) {
  std::istringstream stream(text);
  std::string lasting;
  for (std::string line; std::getline(stream, line);)
    if (line.find(" at ") == std::string::npos && line.find(".LST /") == std::string::npos) lasting += line + "\n";
  return lasting;
}

/// A file that an option reads, and which damages end a run with an error, see Damaged; then those after which answers
/// are left over or missing and the run is refused.
struct Input {
  std::string name, content, fatal, refused = {};
};

struct Option {
  /// `first` is answered up to a place in the middle; without it the run is the automatic one.
  std::string name, first, rest;
  std::vector<Input> inputs;
  /// Names with bars between: files that are opened for writing, and others that may be replaced or deleted.
  std::string outputs, others = {};

  friend void PrintTo(const Option& option, std::ostream* stream) { *stream << option.name; }
};

/// Leaves what lies in `made` in the directory of the job.
constexpr const char* kRefine = "cp ../made/* \"$OLDPWD\"";

const std::string kModel =
    "TITL t\nCELL 1 2.9 2.9 2.9 90 90 90\nREM SG 9 4 C2/c\nREM W\nFVAR 1\nC1     1  .1 .2 .3\nHKLF 4\n";
const std::string kPeaks = "   Radiation Wavelength   1.54056\n   Marked peaks\n10 1000\n20 2000\n";
const std::string kWideRows = "_list_code 4\n   1   0   0        400.00        401.00         1.00 o\n";
const std::string kNarrowRows = "_list_code 4\n   1   0   0      400.00      401.00      1.00 o\n";
const Input kIns{"ABC.INS", kModel, "2.5, NULs"};
const Input kRawIns{"ABC.INS", Replaced(kModel, "REM W", "REM WMIN"), "2.5, 5 to 7.5, NULs"};
const Input kHkl{"ABC.HKL", "   1   0   0  100.00    1.00\n   1   1   0   50.00    1.00\n", ""};
const Input kNarrow{"ABC.FCF", kNarrowRows, ""}, kWide{"ABC.FCF", kWideRows, ""};
const Input kList4{"ABC.FCF", kNarrowRows, "1 to CRs"}, kRefined{"../made/ABC.fcf", kWideRows, "1 to CRs"};
const Input kTxt{"ABC.TXT", "REM\n4 1\n4.5 2\n5 3\n", "1 to 3.5, 4.5 to CRs"};
const Input kReference{"R.LST", kPeaks, "", "1 to 3.5, binary, NULs to CRs"}, kSample{"S.LST", kPeaks, ""};
const Input kDirectory{"../home/talven/drives/c/exe/VELDOR/DIR.DEF", ".\n", "1 to 1.5"};
const Input kCif{"ABC.CIF",
                 "_diffraction_radiation_wavelength 1.5406\n_pd_meas_2theta_range_min 4\n"
                 "_pd_meas_2theta_range_max 5.1\n_pd_meas_2theta_range_inc .5\n_pd_meas_step_count_time 2.5\nloop_\n"
                 "    _pd_meas_counts_total\n10\n20\n",
                 "6, 7, NULs"};
Input Ing(const char* fatal) {
  return {"ABC.ING", "t\n1.54\n4.\n4.1\n.02\n4.\n3\n4.00 1000\n4.02 2000\n4.04 3000\n4.06 4\n4.08 5\n", fatal};
}

const std::string kPattern = "ABC.ING|SBRAG.LST|ABC.CPI|ABC.PAT|ABC.XY", kFewPoints = "1014=5\n1030=10\nok\nexit\n";
const std::vector<Option> kOptions = {
    {"1", "1006=1\nok\n", kFewPoints, {kIns, kHkl}, kPattern, "ABC.TMP"},
    {"2", "1006=2\nok\n", "exit\n", {kCif}, "ABC.ING"},
    {"3", "1006=3\nok\n", "exit\n", {Ing("1 to 7.5, binary to CRs")}, "NEW.CIF"},
    {"4", "1006=4\nok\n", "1006=3\nok\nexit\n", {Ing("1 to 10.5, binary, CRs")}, "NEW.ING"},
    {"5", "1006=5\nok\n", "ok\nexit\n", {kIns}, "DUMMY.HKL"},
    {"Automatic", "", "", {kRawIns, kRefined}, kPattern, "DUMMY.HKL|ABC.INS|TEST.INS|ABC.HKL|ABC.fcf|ABC.TMP"},
    {"6", "1006=6\nok\n", "exit\n", {kList4, kDirectory}, "DUMMY.HKL"},
    {"7Narrow", "1006=7\nok\n", kFewPoints, {kIns, kNarrow}, kPattern, "ABC.TMP"},
    {"7Wide", "1006=7\nok\n", kFewPoints, {kIns, kWide}, kPattern, "ABC.TMP"},
    {"8", "1006=8\nok\n", "exit\n", {Ing("1 to CRs")}, "ABC.TXT"},
    {"9", "1006=9\nok\n", "exit\n", {kTxt}, "ABC.ING"},
    {"Comparison", "1015=on\nok\nok\nR.LST\n", "S.LST\nno\nno\nexit\n", {kReference, kSample}, "Talven_corvane.log"},
};

/// An option with sound inputs in a directory of its own, among files that are none of its business.
struct EveryOption : testing::TestWithParam<Option>, TestDirectory {
  EveryOption() {
    WriteProgram("kvrl97.exe", kRefine);
    WriteProgram("mirade.exe", "");
    fs::create_directory("../made");
    for (const char* name : {"abc", "ABC", "ABCD.ING", "ABC.INS.bak", "NEW.TXT", "TEST.HKL", "DUMMY.INS"})
      WriteFile(name, "somebody else's");
    WriteInputs();
  }

  /// Sound inputs, and no outputs.
  void WriteInputs(const std::string& folder = "") const {
    for (const auto& [name, content] : Files(true)) fs::remove(name);
    for (const Input& input : option.inputs)
      WriteFile(input.name.starts_with("..") ? input.name : folder + input.name, input.content);
  }

  /// The files in the current directory that are outputs, less what tells time and place; or those not of the option.
  Contents Files(bool are_outputs) const {
    const std::string names = "^(" + option.outputs + (are_outputs ? "" : "|" + option.others) + ")$";
    Contents files;
    for (const auto& entry : fs::directory_iterator(".")) {
      const std::string name = entry.path().filename();
      if (entry.is_regular_file() && Matches(name, names) == are_outputs) files[name] = Lasting(ReadFile(name));
    }
    return files;
  }

  /// Runs the program as a process, which must leave alone what is not its own.
  SessionResult Run(const std::string& redirection = "") const {
    const Contents before = Files(false);
    SessionResult result =
        RunProcess(option.first.empty() ? "ABC C: MOLPAK" : "ABC C:", option.first + option.rest, redirection);
    EXPECT_EQ(Files(false), before) << redirection;
    for (const char* report : {"Sanitizer", "runtime error"}) EXPECT_EQ(Count(result.messages, report), 0);
    return result;
  }

  SessionResult RunHere() const {
    return RunSession({"ABC", "C:", option.first.empty() ? "MOLPAK" : ""}, option.first + option.rest);
  }

  Contents SoundOutputs() const {
    EXPECT_EQ(Run().exit_code, 0);
    Contents outputs = Files(true);
    WriteInputs();
    return outputs;
  }

  const Option option = GetParam();
};
INSTANTIATE_TEST_SUITE_P(Faults, EveryOption, testing::ValuesIn(kOptions));

struct Damage {
  std::string name, text;
};

/// A text cut at 2, which is before its second line, at 2.5, which is within it, and so on; then binary, with a line of
/// 1 MB in the middle, with NULs for blanks, with CRs alone.
std::vector<Damage> Damaged(const std::string& text) {
  std::vector<Damage> damages;
  int line = 1;
  for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end + 1, ++line) {
    end = text.find('\n', begin);
    damages.push_back({std::to_string(line), text.substr(0, begin)});
    damages.push_back({std::to_string(line) + ".5", text.substr(0, (begin + end) / 2)});
  }
  std::string bytes;
  for (int i = 0; i < 1024; ++i) bytes += static_cast<char>(i * 7);
  std::string long_line = text;
  long_line.insert(text.find('\n', text.size() / 2), "\n" + std::string(1'000'000, 'x'));
  damages.push_back({"binary", bytes});
  damages.push_back({"long line", long_line});
  damages.push_back({"NULs", Replaced(text, " ", std::string(1, '\0'))});
  damages.push_back({"CRs", Replaced(text, "\n", "\r")});
  return damages;
}

/// The names of the damages after which a run ended with a code, those in a row as "first to last".
std::string WithCode(const std::vector<Damage>& damages, const std::vector<int>& codes, int code) {
  std::string names;
  for (std::size_t i = 0; i < damages.size(); ++i) {
    if (codes[i] != code) continue;
    std::size_t last = i;
    while (last + 1 < damages.size() && codes[last + 1] == code) ++last;
    names += (names.empty() ? "" : ", ") + damages[i].name + (last > i ? " to " + damages[last].name : "");
    i = last;
  }
  return names;
}

TEST_P(EveryOption, NamesFileAndLineOfADamagedInput) {
  for (const Input& input : option.inputs) {
    const std::string fatal = "fatal I/O error: [^ ]*" + input.name.substr(input.name.size() - 4) +
                              ", line [0-9]+: expected [^\n]+, found [^\n]+\n$";
    const std::vector<Damage> damages = Damaged(input.content);
    std::vector<int> codes;
    for (const Damage& damage : damages) {
      WriteInputs();
      WriteFile(input.name, damage.text);
      const SessionResult result = Run();
      codes.push_back(result.exit_code);
      EXPECT_EQ(Matches(result.messages, fatal), result.exit_code == 1) << result.messages;
    }
    EXPECT_EQ(WithCode(damages, codes, 1), input.fatal) << input.name;
    EXPECT_EQ(WithCode(damages, codes, 2), input.refused) << input.name;
  }
}

TEST_P(EveryOption, NamesAFileThatCannotBeWritten) {
  std::istringstream names(Replaced(option.outputs, "|", " "));
  for (std::string name; names >> name;) {
    for (const std::string error : {"opened for writing: Is a directory", "written: No space left on device"}) {
      fs::remove(name);
      if (error.starts_with('o')) fs::create_directory(name);
      if (error.starts_with('w')) fs::create_symlink("/dev/full", name);
      WriteInputs();
      const SessionResult result = Run();
      EXPECT_EQ(result.exit_code, 1);
      EXPECT_TRUE(result.messages.ends_with("fatal I/O error: " + name + ": cannot be " + error + "\n")) << name;
    }
    fs::remove(name);
  }
}

TEST_P(EveryOption, FailsWithAnyLessSpaceThanItNeeds) {
  const Contents sound = SoundOutputs(), before = Files(false);
  const std::string fatal = "fatal I/O error: (" + option.outputs + "|" + option.others +
                            "): cannot be (written|made a copy of ABC.INS): File too large\n$";
  int exit_code = 1;
  for (std::size_t space = 0; exit_code != 0; space += 1 + space / 10) {
    WriteInputs();
    LimitFileSize(space);
    const SessionResult result = RunHere();
    LimitFileSize({});
    exit_code = result.exit_code;
    ASSERT_EQ(exit_code, Matches(result.messages, fatal) ? 1 : 0) << result.messages;
    ASSERT_EQ(Files(false), before);
  }
  EXPECT_EQ(Files(true), sound);
  LimitFileSize(0);
  exit_code = Run().exit_code;
  LimitFileSize({});
  EXPECT_EQ(exit_code, 1) << "not ended by a signal";
}

TEST_P(EveryOption, RunsWithoutStreams) {
  ASSERT_EQ(std::system("mkfifo ../pipe"), 0);
  const Contents sound = SoundOutputs();
  // A pipe whose reader has gone is opened by means of a descriptor that reads as well.
  using Row = std::pair<const char*, int>;
  for (const auto& [redirection, exit_code] :
       {Row{">&-", 0}, Row{"2>&-", 0}, Row{">&- 2>&-", 0}, Row{"2>/dev/full", 0}, Row{"3<>../pipe 2>../pipe 3<&-", 0},
        Row{">/dev/full", 1}, Row{"3<>../pipe >../pipe 3<&-", 1}, Row{"<&-", 0}, Row{"<&- >&- 2>&-", 0}}) {
    const SessionResult result = Run(redirection);
    EXPECT_EQ(result.exit_code, exit_code) << redirection;
    EXPECT_EQ(Count(result.messages, "fatal I/O error: standard output: cannot be written\n"), exit_code);
    const bool is_written = option.first.empty() || *redirection != '<';
    EXPECT_TRUE(exit_code == 1 || Files(true) == (is_written ? sound : Contents())) << redirection;
    WriteInputs();
  }
}

TEST_P(EveryOption, RunsAfterARunThatWasStopped) {
  ASSERT_EQ(std::system("mkfifo ../pipe"), 0);
  WriteFile("../first", option.first);
  const std::string output = option.outputs.substr(0, option.outputs.find('|'));
  const Contents sound = SoundOutputs();
  for (const int signal : {SIGTERM, SIGKILL}) {
    const std::string kill = "kill -" + std::to_string(signal);
    WriteProgram("kvrl97.exe", kill + " $PPID");
    const std::string once_begun = "<../pipe & exec 3<>../pipe; cat ../first >&3; until test -e " + output;
    const SessionResult stopped =
        Run(option.first.empty() ? "" : once_begun + "; do sleep .01; done; " + kill + " $!; wait $!");
    EXPECT_EQ(stopped.exit_code, 128 + signal);
    WriteProgram("kvrl97.exe", kRefine);
    EXPECT_EQ(Run().exit_code, 0);
    EXPECT_EQ(Files(true), sound);
    WriteInputs();
  }
}

struct Comma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

/// A path with the letters of its file name in the other case.
std::string OtherCase(std::string path) {
  for (std::size_t i = path.rfind('/') + 1; i < path.size(); ++i)
    if (path[i] > '9') path[i] = static_cast<char>(path[i] ^ ' ');
  return path;
}

TEST_P(EveryOption, ReadsFilesAsOtherProgramsWriteThem) {
  const Contents sound = SoundOutputs();
  for (const auto& [name, content, fatal, refused] : option.inputs) {
    const std::string tail = name == "ABC.TXT" ? "" : " \n\n";  // which must have no blank lines
    using Row = std::pair<std::string, std::string>;
    for (const auto& [form, text] :
         {Row{name, Replaced(content, "\n", "\r\n")}, Row{name, "\xEF\xBB\xBF" + content}, Row{name, content + tail},
          Row{name, content.substr(0, content.size() - 1)}, Row{OtherCase(name), content}}) {
      WriteInputs();
      fs::remove(name);
      WriteFile(form, text);
      RunHere();
      EXPECT_EQ(Files(true), sound) << form << "\n" << text;
      fs::remove(form);
    }
  }
  WriteInputs();
  const std::locale usual = std::locale::global(std::locale(std::locale(), new Comma));
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  RunHere();
  std::setlocale(LC_ALL, "C");
  std::locale::global(usual);
  EXPECT_EQ(Files(true), sound) << "decimal commas";
  const std::string folder = "Gr\xC3\xBC\xC3\x9F/";
  fs::create_directory(folder);
  WriteInputs(folder);
  WriteFile(kDirectory.name, folder);
  RunHere();
  EXPECT_TRUE(fs::equivalent(".", Path() / folder));
  EXPECT_EQ(Files(true), sound);
}

}  // namespace
}  // namespace talven::test
