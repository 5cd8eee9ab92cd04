#include "handlers/ComparisonForm.h"

#include "textio/Numbers.h"
#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

constexpr int kMostIntField = 1012;
constexpr int kAngTolField = 1013;
constexpr int kSafField = 1014;
constexpr int kApplyField = 1015;
constexpr int kNmfField = 1016;
constexpr int kDSpaceField = 1017;
constexpr int kVerboseField = 1018;
constexpr int kT4mField = 1019;
constexpr int kBtresField = 1020;
constexpr int kBSepField = 1030;
constexpr int kBerrField = 1034;

void FillForm(Toolkit& toolkit, const ComparisonSettings& settings, std::int32_t btres_refill) {
  toolkit.WDialogPutReal(kAngTolField, settings.AngTol);
  toolkit.WDialogPutReal(kNmfField, settings.NMF);
  toolkit.WDialogPutReal(kSafField, settings.SAF);
  toolkit.WDialogPutInteger(kT4mField, settings.WholeT4M());
  toolkit.WDialogPutReal(kBSepField, settings.BSep);
  toolkit.WDialogPutInteger(kBtresField, btres_refill);
  toolkit.WDialogPutReal(kBerrField, settings.ShownBerr());
  toolkit.WDialogPutReal(kDSpaceField, settings.DSPACE);
}

ComparisonSettings ReadForm(const Toolkit& toolkit) {
  return {
      .AngTol = toolkit.WDialogGetReal(kAngTolField),
      .NMF = toolkit.WDialogGetReal(kNmfField),
      .SAF = toolkit.WDialogGetReal(kSafField),
      .T4M = Store(toolkit.WDialogGetInteger(kT4mField)),
      .BSep = toolkit.WDialogGetReal(kBSepField),
      .Btres = Store(toolkit.WDialogGetInteger(kBtresField)),
      .Berr = 2.0F * toolkit.WDialogGetReal(kBerrField),
      .DSPACE = toolkit.WDialogGetReal(kDSpaceField),
      .Apply = toolkit.WDialogGetCheckBox(kApplyField) == 1,
      .Verbose = toolkit.WDialogGetCheckBox(kVerboseField) == 1,
      .MostInt = toolkit.WDialogGetCheckBox(kMostIntField) == 1,
  };
}

}  // namespace

void AskComparisonSettings(Ui& ui, std::int32_t btres_refill, ComparisonSettings& settings) {
  Toolkit& toolkit = ui.toolkit;
  toolkit.WDialogLoad(kComparisonForm);
  toolkit.WDialogSelect(kComparisonForm);
  FillForm(toolkit, settings, btres_refill);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  settings = ReadForm(toolkit);
  toolkit.WDialogUnload(kComparisonForm);
}

}  // namespace talven
