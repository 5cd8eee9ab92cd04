#include "handlers/InsToDummyHkl.h"

#include <array>
#include <string>

#include "handlers/AutomaticRun.h"
#include "handlers/JobInput.h"
#include "handlers/PrepareTestIns.h"
#include "shelx/CellLine.h"
#include "shelx/DummyReflections.h"
#include "shelx/InsMarkers.h"
#include "textio/LetterCase.h"
#include "textio/OutputFile.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

/// One run with all that it works on, so that each step takes one argument.
struct DummyRun {
  Ui& ui;
  RunState& run;
  InsToDummyHklData& data;
  InputFile ins;
  OutputFile hkl;
  InsCensus census;

  bool IsAutomatic() const { return run.AutoState == 1; }
};

bool OpenIns(DummyRun& r) {
  r.ui.ShowLine(r.run.JobFile(".INS"));
  return OpenJobInput(r.ui, r.run, ".INS", r.ins, "INS File (d1)");
}

/// Makes the job name upper case, and blanks its control characters.
void FoldJobName(JobText& JobName) {
  for (std::size_t column = 1; column <= kLongestJobName; ++column) {
    char& c = JobName[column];
    c = static_cast<unsigned char>(c) < ' ' ? ' ' : UpperCase(c);
  }
}

void ShowUnsuitable(Toolkit& toolkit) {
  toolkit.WDialogLoad(kUnsuitableForm);
  toolkit.WDialogSelect(kUnsuitableForm);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  toolkit.WDialogUnload(kUnsuitableForm);
  toolkit.WGrAreaClear();
}

/// Brings the INS to its normal form. False if no refinement can run on it.
bool NormaliseIns(DummyRun& r) {
  r.ins.Close();
  const auto census = PrepareTestIns(r.ui, r.run);
  if (!census) {
    r.run.StopFlag = 1;
    r.ui.ShowMessage("More than 20 Labels in INS File");
    return false;
  }
  r.ins.OpenRequired(r.run.folder, r.run.JobFile(".INS"));
  r.run.folder.Delete(kTestIns);
  r.census = *census;
  if (census->IsSuitable()) return true;
  r.run.StopFlag = 1;
  ShowUnsuitable(r.ui.toolkit);
  return false;
}

/// Settles whether the run is automatic. False if it can't be.
bool SettleMode(DummyRun& r, WminState marker) {
  if (r.run.TrimmedJobName() == "VRAIL" || marker == WminState::kWmin) r.run.AutoState = 1;
  if (r.IsAutomatic() && !NormaliseIns(r)) return false;
  // On purpose after the normalisation: a file rewritten by an earlier run is taken as it stands.
  if (marker == WminState::kXwmin) r.run.AutoState = 1;
  return true;
}

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

/// Shows the limits, takes them as they are set, and asks for the lattice if absences are to be removed.
AbsenceRule AskLimitsAndAbsence(Ui& ui, HklLimits& limits) {
  ui.ShowLine(" ", 0);
  ui.ShowLine("    If there are general absences in the data it is");
  ui.ShowLine("    best to remove these general absences");
  return AskLimits(ui.toolkit, limits) ? AskAbsence(ui.toolkit) : AbsenceRule::kNone;
}

void ShowCell(Ui& ui, const UnitCell& cell, float volume, const HklLimits& limits) {
  Record line;
  line.A(" Hmax Kmax and Lmax are ").I(limits.HMax, 4).I(limits.KMax, 4).I(limits.LMax, 4);
  ui.ShowLine(line.Text());
  ui.ShowLine(" ");
  ui.ShowLine("   CELL");
  line.Clear();
  line.X(3).F(cell.Wavelength, 7, 4);
  for (const float value : {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma}) line.X(1).F(value, 8, 4);
  ui.ShowLine(line.Text());
  ui.ShowLine(Record().A("   Volume ").F(volume, 10, 3).Text());
}

void WriteDummyList(DummyRun& r) {
  UnitCell& cell = r.data.UnitCell;
  cell = ReadCellLine(r.ins).value_or(cell);  // On purpose: without a CELL line the run goes on with the one there is.
  HklLimits limits = LimitsOf(cell);
  const AbsenceRule rule = r.IsAutomatic() ? RuleOfLattice(r.census.LatticeLetter) : AskLimitsAndAbsence(r.ui, limits);
  const DummyList list{DeriveDummyCell(cell), cell.Wavelength, limits, rule};
  ShowCell(r.ui, cell, list.cell.Volume, limits);
  const std::int64_t layers = LayerCount(limits);
  for (std::int64_t h = 0; h < layers; ++h) {
    r.ui.toolkit.TellProgress(h, layers);
    WriteDummyLayer(list, h, r.hkl);
  }
  r.ui.ShowLine(" ");
  r.ins.Close();
  r.hkl.Close();
}

}  // namespace

void InsToDummyHkl(Ui& ui, RunState& run, InsToDummyHklData& data, FcfToHklData& fcf_to_hkl,
                   SimulationData& simulation) {
  run.AutoState = 0;
  DummyRun r{ui, run, data, {}, {}, {}};
  if (!OpenIns(r)) return;
  const WminState marker = FindWminMarker(r.ins);
  r.ins.Rewind();
  r.hkl.Open(run.folder, "DUMMY.HKL");
  FoldJobName(run.JobName);
  if (!SettleMode(r, marker)) return;
  WriteDummyList(r);
  if (r.IsAutomatic()) {
    AutomaticRun(ui, run, fcf_to_hkl, simulation);
  } else {
    ui.ShowLine("   The file DUMMY.HKL has been written");
  }
  if (run.RunMode == 1) run.RunMode = 2;
  if (run.AutoState == 1) run.AutoState = 2;
}

}  // namespace talven
