#include <gtest/gtest.h>

#include "support/TestFiles.h"
#include "textio/FreeForm.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

struct Files : testing::Test, TestDirectory {};

std::string LinesOf(const std::string& name) {
  InputFile file;
  if (!file.Open(Folder(), name)) return "(not open)";
  std::string lines;
  std::string_view line;
  while (file.ReadLine(line)) lines.append("<").append(line).append(">");
  return lines;
}

TEST_F(Files, LineEndsAndWhatIsNoFile) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [content, lines] :
       {Row{"x\ny \n", "<x><y >"}, Row{"x\r\ny \r\n", "<x><y >"}, Row{"x\r\r\ny \r", "<x><y >"},
        Row{"\xEF\xBB\xBFx\ny ", "<x><y >"}, Row{"\n\nx", "<><><x>"}, Row{"", ""}}) {
    WriteFile("lines", content);
    EXPECT_EQ(LinesOf("lines"), lines) << content;
  }
  fs::create_directory("folder");
  for (const char* name : {"folder", "nothing", "/dev/zero"}) EXPECT_EQ(LinesOf(name), "(not open)");
}

TEST_F(Files, NamesAreComparedWithoutCase) {
  if (kOnWindows) GTEST_SKIP();
  WriteFile("job.FCF", "second");
  WriteFile("JOB.Fcf", "first in order");
  fs::create_directory("Cl\xC3\xA4ra");
  WriteFile("Cl\xC3\xA4ra/x.ins", "folder");
  EXPECT_EQ(LinesOf("Job.fcf"), "<first in order>");
  EXPECT_EQ(LinesOf("job.FCF   "), "<second>") << "the exact name wins";
  EXPECT_EQ(LinesOf("CL\xC3\xA4RA/X.INS"), "<folder>");
  OutputFile().Open(Folder(), "JoB.fCf");
  EXPECT_EQ(ReadFile("JOB.Fcf"), "") << "replaced under the name that it has";
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Folder().Delete("jOb.FcF"), i < 2);
}

TEST_F(Files, DrivesLieInTheDataHome) {
  if (kOnWindows) GTEST_SKIP();
  using Row = std::pair<const char*, fs::path>;
  for (const auto& [name, path] : {Row{"C:\\exe\\x.y", Drive() / "exe/x.y"}, Row{"c:\\x", Drive() / "x"},
                                   Row{"/:\\x", Drive() / "x"}, Row{"plain.ins", "plain.ins"}})
    EXPECT_EQ(NativePath(name), path);
  for (const char* none : {" :\\x", "1:\\x", "\\:\\x"}) EXPECT_FALSE(NativePath(none)) << none;
  EXPECT_EQ(Folder().Find("C:\\EXE\\veldor\\dir.def"), Drive() / "exe/VELDOR/DIR.DEF");
}

TEST_F(Files, EveryFailingWriteIsFatal) {
  if (kOnWindows) GTEST_SKIP();
  fs::create_symlink("/dev/full", "full");
  fs::create_directory("folder");
  using Row = std::tuple<const char*, int, const char*>;
  const char* no_space = "full: cannot be written: No space left on device";
  for (const auto& [name, lines, error] :
       {Row{"full", 1, no_space}, Row{"full", 99'999, no_space},  // seen at the last flush, or before
        Row{"folder", 0, "folder: cannot be opened for writing: Is a directory"},
        Row{"9:\\x", 0, "9:\\x: cannot be opened for writing: there is no such drive"}}) {
    OutputFile file;
    EXPECT_EQ(ErrorOf([&, file_name = name, count = lines] {
                file.Open(Folder(), file_name);
                for (int i = 0; i < count; ++i) file.WriteLine("a line");
                file.Close();
              }),
              error);
  }
}

TEST_F(Files, FreeFormReadsFromAFileOverLinesUntilAllValuesAreThere) {
  WriteFile("a.txt", "\n 1.5, 2 3/4\tignored\n\n\n5\r\n6/1D2 seven\n8 x 9\n10");
  InputFile file;
  file.OpenRequired(Folder(), "A.TXT");
  using Row = std::tuple<ReadStatus, float, float>;
  // The rest of a line is left; what stands before a bad text is stored.
  for (const auto& [status, first, second] :
       {Row{ReadStatus::kOk, 1.5F, 2.0F}, Row{ReadStatus::kOk, 5.0F, 6.0F}, Row{ReadStatus::kMalformed, 8.0F, 0.0F},
        Row{ReadStatus::kEndOfFile, 10.0F, 0.0F}}) {
    std::array<float, 2> pair{};
    EXPECT_EQ(ReadReals(file, pair), status);
    EXPECT_EQ(pair, (std::array{first, second}));
  }
}

TEST_F(Files, FreeFormFatalErrorsNameFileLineAndText) {
  WriteFile("a.ing", "1.54x\n5.5\n");
  InputFile file;
  file.OpenRequired(Folder(), "a.ing");
  std::array<float, 3> three{};
  EXPECT_EQ(ErrorOf([&] { RequireReals(file, three, "three"); }), "a.ing, line 1: expected three, found \"1.54x\"");
  EXPECT_EQ(ErrorOf([&] { RequireWholeNumber(file, "a count"); }), "a.ing, line 2: expected a count, found \"5.5\"");
  EXPECT_EQ(ErrorOf([&] { RequireWholeNumber(file, "a row"); }), "a.ing, line 3: expected a row, found end of file");
  EXPECT_EQ(ErrorOf([&] { ParseReals(file, " 1 " + std::string(50, 'q'), three, "after CELL"); }),
            "a.ing, line 2: expected 3 numbers after CELL, found \"" + std::string(40, 'q') + "...\"");
}

TEST_F(Files, FreeFormLinesOfAFileAreBrokenAtColumn81) {
  OutputFile file;
  file.Open(Folder(), "log");
  FreeFormLine(file).Text(" SAREA").Real(26008.6F).Integer(-7).Real(0.0).End();
  const std::string ten(10, 'a'), seventy(70, 'b'), ninety(90, 'c');
  FreeFormLine(file).Text(seventy).Text(ten).Text("c").End();
  FreeFormLine(file).Text(ninety).Real(1.0).End();
  file.Close();
  EXPECT_EQ(ReadFile("log"), "  SAREA    26008.6              -7    0.00000    \n " + seventy + ten + "\n c\n " +
                                 ninety + "\n     1.00000    \n");
}

}  // namespace
}  // namespace talven::test
