#include "ui/forms/FormState.h"

#include <gtest/gtest.h>

#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

FormState Load(int id) {
  return FormState(*FindForm(id));
}

TEST(FormCatalogue, FormsAreWholeAndLoadWithTheirDefaults) {
  for (int id = kBannerForm; id <= kComparisonForm; ++id) {
    const FormState form = Load(id);
    for (const FormState::Field& field : form.Fields()) {
      const Geometry& at = field.spec->geometry;
      EXPECT_TRUE(at.x > 0 && at.y > 0 && at.x + at.width <= form.Spec().width &&
                  at.y + at.height <= form.Spec().height)
          << id << ' ' << field.spec->id;
      EXPECT_FALSE(form.Refusal(field.spec->id, field.text)) << field.spec->id;
    }
  }
  EXPECT_EQ(FindForm(109), nullptr);
  EXPECT_EQ(Load(kJobNameForm).Text(1005), "String");
  EXPECT_EQ(Load(kOptionForm).RadioGroup(1006), (std::vector{1006, 1007, 1008, 1009, 1010, 1011, 1022, 1031, 1035}));
  EXPECT_EQ(Load(kAbsenceForm).ChosenRadio(1006), 3);
  EXPECT_EQ(Load(kComparisonForm).Real(1017), 8.0F);
  EXPECT_EQ(Load(kComparisonForm).Integer(1020), 10000);
  EXPECT_EQ(Load(kIndexLimitForm).Integer(1021), 0);
}

TEST(FormState, PutsOutsideTheRangeAreRefusedInSilence) {
  FormState form = Load(kPatternForm);
  form.PutReal(1013, 3.6F, RealFormat{8, 5});
  EXPECT_EQ(form.Text(1013), "0.710690");
  form.PutReal(1013, 1.5418F, RealFormat{8, 5});
  EXPECT_EQ(form.Text(1013), "1.54180");
  EXPECT_EQ(form.Real(1013), 1.5418F) << "the value, not its text, is what an untouched field gives";
  form.PutReal(1014, 0.025F, RealFormat{4, 2});
  EXPECT_EQ(form.Text(1014), "0.03");
  EXPECT_EQ(form.Real(1014), 0.025F);
  form.PutReal(1014, 0.25F);
  EXPECT_EQ(form.Text(1014), "0.250") << "the field's own format";

  FormState comparison = Load(kComparisonForm);
  comparison.PutReal(1014, 0.02F);
  EXPECT_EQ(comparison.Text(1014), "0.25") << "a stored 0.02 lies just below the 64-bit bound";
  EXPECT_FALSE(comparison.Refusal(1014, "0.02")) << "a typed one does not";
  comparison.EditText(1014, "0.02");
  EXPECT_EQ(comparison.Real(1014), 0.02F);
  comparison.PutInteger(1020, 99);
  EXPECT_EQ(comparison.Integer(1020), 10000);
  comparison.PutInteger(1020, 100);
  EXPECT_EQ(comparison.Text(1020), "100");
}

TEST(FormState, TypedTextIsTestedAndParsed) {
  const FormState form = Load(kPatternForm);
  EXPECT_EQ(form.Refusal(1014, "5.1"), "a number from 0.001 to 5");
  for (const char* bad : {"", "  ", "abc", "0,05", "0.0009", "1e", "nan"}) EXPECT_TRUE(form.Refusal(1014, bad)) << bad;
  for (const char* good : {"5", " 0.05 ", "1e-2", "+2"}) EXPECT_FALSE(form.Refusal(1014, good)) << good;

  FormState limits = Load(kIndexLimitForm);
  for (const char* bad : {"1.5", "1e3", "123456789012", "x", "12-5", "-"})
    EXPECT_EQ(limits.Refusal(1019, bad), "a whole number") << bad;
  EXPECT_FALSE(limits.Refusal(1019, "")) << "a field without a range may be emptied";
  limits.EditText(1019, "");
  EXPECT_EQ(limits.Integer(1019), -999);
  limits.EditText(1019, "-3");
  EXPECT_EQ(limits.Integer(1019), -3);
  limits.EditText(1019, "99999999999");
  EXPECT_EQ(limits.Integer(1019), 2147483647);

  FormState comparison = Load(kComparisonForm);
  comparison.EditText(1030, "");
  EXPECT_EQ(comparison.Real(1030), -999.0F);
  EXPECT_TRUE(comparison.Refusal(1030, "1e39")) << "no stored real holds it";
  comparison.EditText(1030, "-2.5");
  EXPECT_EQ(comparison.Real(1030), -2.5F);
}

TEST(FormState, RadioGroupsAndUnknownFields) {
  FormState form = Load(kPatternForm);
  EXPECT_TRUE(form.ChooseRadio(1006, 3));
  EXPECT_EQ(form.ChosenRadio(1006), 3);
  EXPECT_FALSE(form.ChooseRadio(1006, 4) || form.ChooseRadio(1006, 0));
  EXPECT_TRUE(form.IsSet(1008) && !form.IsSet(1006));
  form.PutReal(4711, 1.0F);
  form.SetCheck(4711, true);
  EXPECT_EQ(form.Real(4711), 0.0F);
}

}  // namespace
}  // namespace talven
