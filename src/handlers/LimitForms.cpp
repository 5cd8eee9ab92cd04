#include "handlers/LimitForms.h"

#include <array>

#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

/// Gives whether the user wants an absence removed.
bool AskLimits(Toolkit& toolkit, HklLimits& limits) {
  toolkit.WDialogLoad(kIndexLimitForm);
  toolkit.WDialogSelect(kIndexLimitForm);
  toolkit.WDialogPutInteger(index_limit_field::kHMax, limits.HMax);
  toolkit.WDialogPutInteger(index_limit_field::kKMax, limits.KMax);
  toolkit.WDialogPutInteger(index_limit_field::kLMax, limits.LMax);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const bool remove_absence = toolkit.WDialogGetCheckBox(index_limit_field::kRemoveAbsence) == 1;
  limits.HMax = toolkit.WDialogGetInteger(index_limit_field::kHMax);
  limits.KMax = toolkit.WDialogGetInteger(index_limit_field::kKMax);
  limits.LMax = toolkit.WDialogGetInteger(index_limit_field::kLMax);
  toolkit.WDialogUnload(kIndexLimitForm);
  toolkit.WGrAreaClear();
  return remove_absence;
}

AbsenceRule AskAbsence(Toolkit& toolkit) {
  constexpr std::array kRules = {AbsenceRule::kNone, AbsenceRule::kA, AbsenceRule::kB,
                                 AbsenceRule::kC,    AbsenceRule::kF, AbsenceRule::kI};
  toolkit.WDialogLoad(kAbsenceForm);
  toolkit.WDialogSelect(kAbsenceForm);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const std::int32_t choice = toolkit.WDialogGetRadioButton(absence_field::kLattice);
  toolkit.WDialogUnload(kAbsenceForm);
  toolkit.WGrAreaClear();
  return kRules.at(static_cast<std::size_t>(choice));
}

}  // namespace

AbsenceRule AskLimitsAndAbsence(Ui& ui, HklLimits& limits) {
  ui.ShowLine(" ", 0);
  ui.ShowLine("    If there are general absences in the data it is");
  ui.ShowLine("    best to remove these general absences");
  return AskLimits(ui.toolkit, limits) ? AskAbsence(ui.toolkit) : AbsenceRule::kNone;
}

}  // namespace talven
