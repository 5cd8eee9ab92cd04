#include "ui/forms/FormState.h"

#include <gtest/gtest.h>

#include "textio/Numbers.h"
#include "ui/forms/FormCatalogue.h"

namespace talven {

TEST(FormState, PutsOutsideTheRangeAreRefusedInSilence) {
  using Row = std::tuple<int, int, float, std::optional<RealFormat>, float, const char*>;
  for (const auto& [id, field, value, format, kept, text] :
       {Row{kPatternForm, 1013, 3.6F, RealFormat{8, 5}, 0.71069F, "0.710690"},
        Row{kPatternForm, 1014, 0.25F, {}, 0.25F, "0.250"},
        // a stored 0.02 lies just below the 64-bit bound; a typed one, below, does not
        Row{kComparisonForm, 1014, 0.02F, {}, 0.25F, "0.25"}, Row{kComparisonForm, 1020, 99.0F, {}, 1e4F, "10000"}}) {
    FormState form(*FindForm(id));
    form.PutReal(field, value, format);
    EXPECT_EQ(form.Real(field), kept);
    EXPECT_EQ(form.Text(field), text);
  }
  FormState form(*FindForm(kPatternForm));
  form.EditText(1013, "2");
  form.PutReal(1013, 1.54184F, RealFormat{6, 3});
  EXPECT_EQ(form.Text(1013), "1.542");
  EXPECT_EQ(form.Real(1013), 1.54184F) << "the value, not its text, is what an untouched field gives";
  form.PutInteger(1013, 3);
  EXPECT_EQ(form.Text(1013), "3");
}

TEST(FormState, TypedTextIsTestedAndParsed) {
  using Bad = std::tuple<int, int, std::string, std::vector<const char*>>;
  for (const auto& [id, field, wanted, texts] :
       {Bad{kPatternForm, 1014, "a number from 0.001 to 5", {"5.1", " ", "0,05", "0.0009", "1e", "nan"}},
        Bad{kComparisonForm, 1030, "a number", {"1e39"}},
        Bad{kIndexLimitForm, 1019, "a whole number", {"1.5", "-", "12-5", "1e3", "123456789012"}}})
    for (const char* text : texts) EXPECT_EQ(FormState(*FindForm(id)).Refusal(field, text), wanted) << text;
  using Good = std::tuple<int, int, const char*, float>;
  for (const auto& [id, field, text, value] :
       {Good{kPatternForm, 1014, "5", 5.0F}, Good{kPatternForm, 1014, " 0.05 ", 0.05F},
        Good{kPatternForm, 1014, "1e-2", 0.01F}, Good{kPatternForm, 1014, "+2", 2.0F},
        Good{kComparisonForm, 1014, "0.02", 0.02F}, Good{kIndexLimitForm, 1019, "-3", -3.0F},
        // a field without a range may be emptied
        Good{kIndexLimitForm, 1019, "", -999.0F}, Good{kIndexLimitForm, 1019, "99999999999", 99999999999.0F}}) {
    FormState form(*FindForm(id));
    EXPECT_FALSE(form.Refusal(field, text)) << text;
    form.EditText(field, text);
    EXPECT_EQ(form.Real(field), value) << text;
    EXPECT_EQ(form.Integer(field), NearestWhole(value)) << text;
  }
}

}  // namespace talven
