#include "textio/FreeForm.h"

#include <gtest/gtest.h>

#include <array>

#include "support/TestFiles.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

using test::TestDirectory;
using test::WriteFile;

/// The text of the fatal error that a call throws.
template <typename Call>
std::string ErrorOf(const Call& call) {
  try {
    call();
  } catch (const FatalIoError& error) {
    return error.what();
  }
  return "(no error)";
}

TEST(FreeForm, ReadsFromAFileOverLinesUntilAllValuesAreThere) {
  TestDirectory directory;
  WriteFile("a.txt", "\n 1.5, 2 3/4\tignored\n\n\n5\r\n6 1D2 seven\n8 x 9\n10");
  InputFile file;
  ASSERT_TRUE(file.Open("A.TXT"));
  std::array<float, 2> pair{};
  std::array<float, 1> one{};
  EXPECT_EQ(ReadReals(file, pair), ReadStatus::kOk);
  EXPECT_EQ(pair, (std::array{1.5F, 2.0F})) << "the rest of the line is not looked at";
  EXPECT_EQ(ReadReals(file, pair), ReadStatus::kOk);
  EXPECT_EQ(pair, (std::array{5.0F, 6.0F})) << "blank lines are passed over, a short line goes on";
  EXPECT_EQ(ReadReals(file, pair), ReadStatus::kMalformed);
  EXPECT_EQ(pair[0], 8.0F) << "what stands before the bad text is stored";
  EXPECT_EQ(ReadReals(file, pair), ReadStatus::kEndOfFile);
  EXPECT_EQ(ReadReals(file, one), ReadStatus::kEndOfFile);
}

TEST(FreeForm, FatalErrorsNameFileLineAndText) {
  TestDirectory directory;
  WriteFile("a.ing", "title\n1.54x\n5.5\n");
  InputFile file;
  file.OpenRequired("a.ing");
  file.RequireLine("a title");
  std::array<float, 1> one{};
  EXPECT_EQ(ErrorOf([&] { RequireReals(file, one, "a wavelength"); }),
            "a.ing, line 2: expected a wavelength, found \"1.54x\"");
  EXPECT_EQ(ErrorOf([&] { RequireWholeNumber(file, "a number of points"); }),
            "a.ing, line 3: expected a number of points, found \"5.5\"");
  EXPECT_EQ(ErrorOf([&] { file.RequireLine("a row"); }), "a.ing, line 4: expected a row, found end of file");
  EXPECT_EQ(ErrorOf([&] { RequireReals(file, one, "a row"); }), "a.ing, line 4: expected a row, found end of file");
  std::array<float, 3> three{};
  EXPECT_EQ(ErrorOf([&] { ParseReals(file, "  1 2", three, "after CELL"); }),
            "a.ing, line 4: expected 3 numbers after CELL, found 2");
  EXPECT_EQ(ErrorOf([&] { ParseReals(file, " 1 " + std::string(50, 'q'), three, "after CELL"); }),
            "a.ing, line 4: expected 3 numbers after CELL, found \"" + std::string(40, 'q') + "...\"");
  EXPECT_EQ(ErrorOf([&] { file.OpenRequired("none.ing"); }),
            "none.ing: cannot be opened: expected an existing file, found none");
}

TEST(FreeForm, LinesOfAFileAreBrokenAtColumn81) {
  TestDirectory directory;
  OutputFile file;
  file.Open("log");
  FreeFormLine(file).Text(" SAREA").Real(26008.6F).Integer(-7).Real(0.0).End();
  FreeFormLine(file).Text(std::string(70, 'a')).Text(std::string(10, 'b')).Text("c").End();
  FreeFormLine(file).Text(std::string(90, 'd')).Real(1.0).End();
  file.Close();
  EXPECT_EQ(test::ReadFile("log"), "  SAREA    26008.6              -7    0.00000    \n " + std::string(70, 'a') +
                                       std::string(10, 'b') + "\n c\n " + std::string(90, 'd') +
                                       "\n     1.00000    \n");
}

}  // namespace
}  // namespace talven
