#include "shelx/FcfListCode.h"

#include <gtest/gtest.h>

namespace talven {
namespace {

TEST(FcfListCode, TellsOfListsThatAreNotRead) {
  EXPECT_EQ(HintForFcf("ABC.FCF", "#\n_shelx_refln_list_code          4\n"), std::nullopt);
  EXPECT_EQ(HintForFcf("ABC.FCF", "loop_\n _refln_index_h\n"), std::nullopt);
  EXPECT_EQ(HintForFcf("ABC.FCF", "#\r\n _shelx_refln_list_code          6\r\n"),
            "ABC.FCF: holds LIST 6, and options 6 and 7 read LIST 4: refine once more with LIST 4 in the INS; "
            "talven-run convert brings in measured patterns of other kinds");
  EXPECT_TRUE(HintForFcf("ABC.FCF", "# _shelx_refln_list_code 4\n_shelx_refln_list_code 6\n")) << "not of a remark";
}

}  // namespace
}  // namespace talven
