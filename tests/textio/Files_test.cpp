#include <gtest/gtest.h>

#include "support/TestFiles.h"
#include "textio/FileNames.h"
#include "textio/FreeForm.h"
#include "textio/List4Row.h"

namespace talven {
namespace {

namespace fs = std::filesystem;
using test::ErrorOf;
using test::ReadFile;
using test::TestDirectory;
using test::WriteFile;

std::string LinesOf(const std::string& name) {
  InputFile file;
  if (!file.Open(name)) return "(not open)";
  std::string lines;
  std::string_view line;
  file.ReadLine(line);
  for (file.Rewind(); file.ReadLine(line);) lines.append("<").append(line).append(">");
  return lines;
}

TEST(InputFile, LineEndsAndWhatIsNoFile) {
  TestDirectory directory;
  using Row = std::pair<const char*, const char*>;
  for (const auto& [content, lines] :
       {Row{"a\nb \n", "<a><b >"}, Row{"a\r\nb \r\n", "<a><b >"}, Row{"a\r\r\nb \r", "<a><b >"},
        Row{"\xEF\xBB\xBF"
            "a\nb ",
            "<a><b >"},
        Row{"\n\na", "<><><a>"}, Row{"", ""}}) {
    WriteFile("lines", content);
    EXPECT_EQ(LinesOf("lines"), lines) << content;
  }
  fs::create_directory("folder");
  for (const char* name : {"folder", "nothing", "/dev/zero"}) EXPECT_EQ(LinesOf(name), "(not open)");
}

TEST(FileNames, AreComparedWithoutCase) {
  TestDirectory directory;
  WriteFile("job.FCF", "second");
  WriteFile("JOB.Fcf", "first in order");
  fs::create_directory("Cl\xC3\xA4ra");
  WriteFile("Cl\xC3\xA4ra/x.ins", "folder");
  EXPECT_EQ(LinesOf("Job.fcf"), "<first in order>");
  EXPECT_EQ(LinesOf("job.FCF   "), "<second>") << "the exact name wins";
  EXPECT_EQ(LinesOf("CL\xC3\xA4RA/X.INS"), "<folder>");
  OutputFile().Open("JoB.fCf");
  EXPECT_EQ(ReadFile("JOB.Fcf"), "") << "replaced under the name that it has";
  for (int i = 0; i < 3; ++i) EXPECT_EQ(DeleteExisting("jOb.FcF"), i < 2);
}

TEST(FileNames, DrivesLieInTheDataHome) {
  TestDirectory directory;
  using Row = std::pair<const char*, fs::path>;
  for (const auto& [name, path] :
       {Row{"C:\\exe\\x.y", directory.Drive() / "exe/x.y"}, Row{"c:\\x", directory.Drive() / "x"},
        Row{"/:\\x", directory.Drive() / "x"}, Row{"plain.ins", "plain.ins"}})
    EXPECT_EQ(NativePath(name), path);
  for (const char* none : {" :\\x", "1:\\x", "\\:\\x"}) EXPECT_FALSE(NativePath(none)) << none;
  EXPECT_EQ(FindExisting("C:\\EXE\\veldor\\dir.def"), directory.Drive() / "exe/VELDOR/DIR.DEF");
}

TEST(OutputFile, ReplacesRewindsAndDeletes) {
  TestDirectory directory;
  WriteFile("a", "an older and longer text\n");
  OutputFile file;
  {
    OutputFile left;
    left.Open("a");
    left.WriteLine("one");
    left.Rewind();
    left.WriteLine("as far as it came");
  }
  EXPECT_EQ(ReadFile("a"), "as far as it came\n");
  file.Open("a");
  file.CloseAndDelete();
  EXPECT_FALSE(test::Exists("a"));
}

TEST(OutputFile, EveryFailingWriteIsFatal) {
  TestDirectory directory;
  fs::create_symlink("/dev/full", "full");
  fs::create_directory("folder");
  using Row = std::tuple<const char*, int, const char*>;
  for (const auto& [name, lines, error] :
       {Row{"full", 1, "full: cannot be written: No space left on device"},  // seen at the last flush
        Row{"full", 99'999, "full: cannot be written: No space left on device"},
        Row{"folder", 0, "folder: cannot be opened for writing: Is a directory"},
        Row{"9:\\x", 0, "9:\\x: cannot be opened for writing: there is no such drive"}}) {
    OutputFile file;
    EXPECT_EQ(ErrorOf([&] {
                file.Open(name);
                for (int i = 0; i < lines; ++i) file.WriteLine("a line");
                if (lines == 1) file.Close();
              }),
              error);
  }
}

TEST(List4Row, TellsTheLayoutsApart) {
  const auto wide = ReadWideList4Row("   1  -2   3       1234.56       1240.11         3.02 o");
  ASSERT_TRUE(wide);
  EXPECT_EQ(std::tuple(wide->K, wide->CalculatedF2, wide->MeasuredF2, wide->Sigma),
            std::tuple(-2, 1234.56F, 1240.11F, 3.02F));
  for (const char* other :
       {"   1   0   2     1234.56     1240.11      3.02 o", "   1   0   2     1234.56     1240.11      3.02 x",
        "   1   0   2       1234.56       1240.11         3.02",
        "   1   0   2       1234.56       1240.11         3.02 1",
        "   1   0   2       1234.56       12a0.11         3.02 o",
        "                                               o      o"})
    EXPECT_FALSE(ReadWideList4Row(other)) << other;
}

TEST(FreeForm, ReadsFromAFileOverLinesUntilAllValuesAreThere) {
  TestDirectory directory;
  WriteFile("a.txt", "\n 1.5, 2 3/4\tignored\n\n\n5\r\n6/1D2 seven\n8 x 9\n10");
  InputFile file;
  file.OpenRequired("A.TXT");
  using Row = std::tuple<ReadStatus, float, float>;
  for (const auto& [status, first, second] :
       {Row{ReadStatus::kOk, 1.5F, 2.0F},                                           // the rest of the line is left
        Row{ReadStatus::kOk, 5.0F, 6.0F}, Row{ReadStatus::kMalformed, 8.0F, 0.0F},  // stored before the bad text
        Row{ReadStatus::kEndOfFile, 10.0F, 0.0F}}) {
    std::array<float, 2> pair{};
    EXPECT_EQ(ReadReals(file, pair), status);
    EXPECT_EQ(pair, (std::array{first, second}));
  }
}

TEST(FreeForm, FatalErrorsNameFileLineAndText) {
  TestDirectory directory;
  WriteFile("a.ing", "title\n1.54x\n5.5\n");
  InputFile file;
  file.OpenRequired("a.ing");
  file.RequireLine("a title");
  std::array<float, 3> three{};
  const std::string long_text(50, 'q');
  EXPECT_EQ(ErrorOf([&] { RequireReals(file, three, "three"); }), "a.ing, line 2: expected three, found \"1.54x\"");
  EXPECT_EQ(ErrorOf([&] { RequireWholeNumber(file, "a count"); }), "a.ing, line 3: expected a count, found \"5.5\"");
  for (const auto& call :
       {+[](InputFile& end) { end.RequireLine("a row"); }, +[](InputFile& end) { RequireWholeNumber(end, "a row"); }})
    EXPECT_EQ(ErrorOf([&] { call(file); }), "a.ing, line 4: expected a row, found end of file");
  EXPECT_EQ(ErrorOf([&] { ParseReals(file, "  1 2", three, "after CELL"); }),
            "a.ing, line 3: expected 3 numbers after CELL, found 2");
  EXPECT_EQ(ErrorOf([&] { ParseReals(file, " 1 " + long_text, three, "after CELL"); }),
            "a.ing, line 3: expected 3 numbers after CELL, found \"" + long_text.substr(10) + "...\"");
  EXPECT_EQ(ErrorOf([&] { file.OpenRequired("b"); }), "b: cannot be opened: expected an existing file, found none");
}

TEST(FreeForm, LinesOfAFileAreBrokenAtColumn81) {
  TestDirectory directory;
  const std::string ten(10, 'a'), eighty(80, 'b');
  OutputFile file;
  file.Open("log");
  FreeFormLine(file).Text(" SAREA").Real(26008.6F).Integer(-7).Real(0.0).End();
  FreeFormLine(file).Text(eighty.substr(10)).Text(ten).Text("c").End();
  FreeFormLine(file).Text(eighty + ten).Real(1.0).End();
  file.Close();
  EXPECT_EQ(ReadFile("log"), "  SAREA    26008.6              -7    0.00000    \n " + eighty.substr(10) + ten +
                                 "\n c\n " + eighty + ten + "\n     1.00000    \n");
}

}  // namespace
}  // namespace talven
