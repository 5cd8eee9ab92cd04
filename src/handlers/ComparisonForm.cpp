#include "handlers/ComparisonForm.h"

#include "textio/Numbers.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

namespace field = comparison_field;

void FillForm(Toolkit& toolkit, const ComparisonSettings& settings, std::int32_t btres_refill) {
  toolkit.WDialogPutReal(field::kAngTol, settings.AngTol);
  toolkit.WDialogPutReal(field::kNmf, settings.NMF);
  toolkit.WDialogPutReal(field::kSaf, settings.SAF);
  toolkit.WDialogPutInteger(field::kT4m, settings.WholeT4M());
  toolkit.WDialogPutReal(field::kBSep, settings.BSep);
  toolkit.WDialogPutInteger(field::kBtres, btres_refill);
  toolkit.WDialogPutReal(field::kBerr, settings.ShownBerr());
  toolkit.WDialogPutReal(field::kDSpace, settings.DSPACE);
}

ComparisonSettings ReadForm(const Toolkit& toolkit) {
  return {
      .AngTol = toolkit.WDialogGetReal(field::kAngTol),
      .NMF = toolkit.WDialogGetReal(field::kNmf),
      .SAF = toolkit.WDialogGetReal(field::kSaf),
      .T4M = Store(toolkit.WDialogGetInteger(field::kT4m)),
      .BSep = toolkit.WDialogGetReal(field::kBSep),
      .Btres = Store(toolkit.WDialogGetInteger(field::kBtres)),
      .Berr = 2.0F * toolkit.WDialogGetReal(field::kBerr),
      .DSPACE = toolkit.WDialogGetReal(field::kDSpace),
      .Apply = toolkit.WDialogGetCheckBox(field::kApply) == 1,
      .Verbose = toolkit.WDialogGetCheckBox(field::kVerbose) == 1,
      .MostInt = toolkit.WDialogGetCheckBox(field::kMostInt) == 1,
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
