#include <gtest/gtest.h>

#include <filesystem>

#include "support/TestFiles.h"
#include "textio/FatalIoError.h"
#include "textio/FileNames.h"
#include "textio/InputFile.h"
#include "textio/List4Row.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

namespace fs = std::filesystem;
using test::ReadFile;
using test::TestDirectory;
using test::WriteFile;

std::string LinesOf(const std::string& name) {
  InputFile file;
  if (!file.Open(name)) return "(not open)";
  std::string lines;
  std::string_view line;
  while (file.ReadLine(line)) lines.append("<").append(line).append(">");
  return lines;
}

TEST(InputFile, LineEnds) {
  TestDirectory directory;
  for (const char* content : {"a\nb \n", "a\r\nb \r\n", "a\r\r\nb \r\r\n",
                              "\xEF\xBB\xBF"
                              "a\nb ",
                              "a\nb \r"}) {
    WriteFile("lines", content);
    EXPECT_EQ(LinesOf("lines"), "<a><b >") << content;
  }
  WriteFile("lines", "\n\na");
  EXPECT_EQ(LinesOf("lines"), "<><><a>");
  WriteFile("lines", "");
  EXPECT_EQ(LinesOf("lines"), "");
  WriteFile("lines", "\xEF\xBB\xBFx\n");
  InputFile file;
  ASSERT_TRUE(file.Open("lines"));
  std::string_view line;
  file.ReadLine(line);
  file.Rewind();
  EXPECT_TRUE(file.ReadLine(line) && line == "x") << "the mark is dropped after a rewind too";
}

TEST(InputFile, OpensOnlyFiles) {
  TestDirectory directory;
  fs::create_directory("folder.INS");
  EXPECT_EQ(LinesOf("folder.INS"), "(not open)");
  EXPECT_EQ(LinesOf("nothing"), "(not open)");
  EXPECT_EQ(LinesOf("/dev/zero"), "(not open)");
}

TEST(FileNames, AreComparedWithoutCase) {
  TestDirectory directory;
  WriteFile("job.FCF", "second");
  WriteFile("JOB.Fcf", "first in order");
  EXPECT_EQ(LinesOf("Job.fcf"), "<first in order>");
  EXPECT_EQ(LinesOf("job.FCF   "), "<second>") << "the exact name wins";
  fs::create_directory("Cl\xC3\xA4ra");
  WriteFile("Cl\xC3\xA4ra/x.ins", "folder");
  EXPECT_EQ(LinesOf("CL\xC3\xA4RA/X.INS"), "<folder>");
  OutputFile file;
  file.Open("JoB.fCf");
  file.Close();
  EXPECT_EQ(ReadFile("JOB.Fcf"), "") << "replaced under the name that it has";
  DeleteExisting("jOb.FcF");
  DeleteExisting("jOb.FcF");
  DeleteExisting("jOb.FcF");
  EXPECT_FALSE(test::Exists("JOB.Fcf") || test::Exists("job.FCF"));
}

TEST(FileNames, DrivesLieInTheDataHome) {
  TestDirectory directory;
  const fs::path drive = directory.Drive();
  EXPECT_EQ(NativePath("C:\\exe\\x.y"), drive / "exe/x.y");
  EXPECT_EQ(NativePath("c:\\x"), drive / "x");
  EXPECT_EQ(NativePath("/:\\x"), drive / "x");
  EXPECT_EQ(NativePath("plain.ins"), fs::path("plain.ins"));
  for (const char* none : {" :\\x", "1:\\x", "\\:\\x"}) EXPECT_FALSE(NativePath(none)) << none;
  EXPECT_EQ(FindExisting("C:\\EXE\\veldor\\dir.def"), drive / "exe/VELDOR/DIR.DEF");
}

TEST(OutputFile, ReplacesRewindsAndDeletes) {
  TestDirectory directory;
  WriteFile("a", "an older and longer text\n");
  OutputFile file;
  file.Open("a");
  file.WriteLine("one");
  file.WriteLine("two");
  file.Rewind();
  file.WriteLine("three");
  file.Close();
  EXPECT_EQ(ReadFile("a"), "three\n");
  file.Open("a");
  file.WriteLine("four");
  file.CloseAndDelete();
  EXPECT_FALSE(test::Exists("a"));
  {
    OutputFile left;
    left.Open("b");
    left.WriteLine("as far as it came");
  }
  EXPECT_EQ(ReadFile("b"), "as far as it came\n");
}

TEST(OutputFile, EveryFailingWriteIsFatal) {
  TestDirectory directory;
  fs::create_symlink("/dev/full", "full.XY");
  const auto error_of = [](auto call) -> std::string {
    try {
      call();
    } catch (const FatalIoError& error) {
      return error.what();
    }
    return "(no error)";
  };
  EXPECT_EQ(error_of([] {
              OutputFile file;
              file.Open("full.XY");
              file.WriteLine("seen at the last flush");
              file.Close();
            }),
            "full.XY: cannot be written: No space left on device");
  EXPECT_EQ(error_of([] {
              OutputFile file;
              file.Open("full.XY");
              for (int i = 0; i < 10'000; ++i) file.WriteLine("seen in the middle");
            }),
            "full.XY: cannot be written: No space left on device");
  fs::create_directory("a folder");
  EXPECT_EQ(error_of([] { OutputFile().Open("a folder"); }), "a folder: cannot be opened for writing: Is a directory");
  EXPECT_EQ(error_of([] { OutputFile().Open("9:\\x"); }),
            "9:\\x: cannot be opened for writing: there is no such drive");
}

TEST(List4Row, TellsTheLayoutsApart) {
  const auto wide = ReadWideList4Row("   1  -2   3       1234.56       1240.11         3.02 o");
  ASSERT_TRUE(wide);
  EXPECT_EQ(wide->K, -2);
  EXPECT_EQ(wide->CalculatedF2, 1234.56F);
  EXPECT_EQ(wide->MeasuredF2, 1240.11F);
  EXPECT_EQ(wide->Sigma, 3.02F);
  for (const char* other :
       {"   1   0   2     1234.56     1240.11      3.02 o", "   1   0   2     1234.56     1240.11      3.02 x",
        "   1   0   2       1234.56       1240.11         3.02",
        "   1   0   2       1234.56       1240.11         3.02 1",
        "   1   0   2       1234.56       12a0.11         3.02 o",
        "                                               o      o"})
    EXPECT_FALSE(ReadWideList4Row(other)) << other;
}

}  // namespace
}  // namespace talven
