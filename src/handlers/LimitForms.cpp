#include "handlers/LimitForms.h"

#include <array>

#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

constexpr int kRemoveAbsenceField = 1015;
constexpr int kHMaxField = 1019;
constexpr int kKMaxField = 1020;
constexpr int kLMaxField = 1021;
constexpr int kFirstLatticeField = 1006;

/// Gives whether the user wants an absence removed.
bool AskLimits(Toolkit& toolkit, HklLimits& limits) {
  toolkit.WDialogLoad(kIndexLimitForm);
  toolkit.WDialogSelect(kIndexLimitForm);
  toolkit.WDialogPutInteger(kHMaxField, limits.HMax);
  toolkit.WDialogPutInteger(kKMaxField, limits.KMax);
  toolkit.WDialogPutInteger(kLMaxField, limits.LMax);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const bool remove_absence = toolkit.WDialogGetCheckBox(kRemoveAbsenceField) == 1;
  limits.HMax = toolkit.WDialogGetInteger(kHMaxField);
  limits.KMax = toolkit.WDialogGetInteger(kKMaxField);
  limits.LMax = toolkit.WDialogGetInteger(kLMaxField);
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
  const std::int32_t choice = toolkit.WDialogGetRadioButton(kFirstLatticeField);
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
