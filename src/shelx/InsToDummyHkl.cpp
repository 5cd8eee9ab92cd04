#include "shelx/InsToDummyHkl.h"

#include <string>

#include "shelx/AutomaticRun.h"
#include "shelx/DummyCell.h"
#include "shelx/DummyReflections.h"
#include "shelx/InsMarkers.h"
#include "shelx/LimitForms.h"
#include "shelx/PrepareTestIns.h"
#include "simulation/CellLine.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"
#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

/// One run with all that it works on, so that each step takes one argument.
struct DummyRun {
  Ui& ui;
  RunState& run;
  InsToDummyHklData& data;
  InputFile ins;
  OutputFile hkl;

  bool IsAutomatic() const { return run.AutoState == 1; }
};

bool OpenIns(DummyRun& r) {
  const std::string ins_name = r.run.JobFile(".INS");
  r.ui.ShowLine(ins_name);
  if (r.ins.Open(Folder(), ins_name)) return true;
  r.run.StopFlag = 1;
  r.ui.ShowMessage("INS File (d1) NOT Found");
  return false;
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
  if (!PrepareTestIns(r.ui, r.run, r.ins, r.data.InsCensus)) {
    r.run.StopFlag = 1;
    r.ui.ShowMessage("More than 20 Labels in INS File");
    return false;
  }
  if (r.data.InsCensus.IsSuitable()) return true;
  r.run.StopFlag = 1;
  ShowUnsuitable(r.ui.toolkit);
  return false;
}

/// Settles whether the run is automatic. False if it can't be.
bool SettleMode(DummyRun& r, WminState marker) {
  if (r.run.TrimmedJobName() == "VRAIL" || marker == WminState::kWmin) r.run.AutoState = 1;
  if (r.IsAutomatic() && !NormaliseIns(r)) return false;
  // On purpose behind the normalisation: a file rewritten by an earlier run is taken as it stands.
  if (marker == WminState::kXwmin) r.run.AutoState = 1;
  return true;
}

/// The rule for a lattice letter of the INS; none for P, for R and for no letter at all.
AbsenceRule RuleOfLattice(std::int32_t letter) {
  switch (letter) {
    case 'A':
      return AbsenceRule::kA;
    case 'B':
      return AbsenceRule::kB;
    case 'C':
      return AbsenceRule::kC;
    case 'F':
      return AbsenceRule::kF;
    case 'I':
      return AbsenceRule::kI;
    default:
      return AbsenceRule::kNone;
  }
}

void ShowCell(Ui& ui, const UnitCell& cell, const HklLimits& limits) {
  Record line;
  line.A(" Hmax Kmax and Lmax are ").I(limits.HMax, 4).I(limits.KMax, 4).I(limits.LMax, 4);
  ui.ShowLine(line.Text());
  ui.ShowLine(" ");
  ui.ShowLine("   CELL");
  line.Clear();
  line.X(3).F(cell.Wavelength, 7, 4);
  for (const float value : {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma}) line.X(1).F(value, 8, 4);
  ui.ShowLine(line.Text());
  ui.ShowLine(Record().A("   Volume ").F(cell.Volume, 10, 3).Text());
}

void WriteDummyList(DummyRun& r) {
  UnitCell& cell = r.data.UnitCell;
  ReadCellLine(r.ins, cell);  // On purpose: without a CELL line the run goes on with the cell that is there.
  HklLimits limits = LimitsOf(cell);
  const AbsenceRule rule =
      r.IsAutomatic() ? RuleOfLattice(r.data.InsCensus.LatticeLetter) : AskLimitsAndAbsence(r.ui, limits);
  DeriveDummyCell(cell);
  ShowCell(r.ui, cell, limits);
  WriteDummyReflections(cell, limits, rule, r.hkl);
  r.ui.ShowLine(" ");
  r.ins.Close();
  r.hkl.Close();
}

}  // namespace

void InsToDummyHkl(Ui& ui, RunState& run, InsToDummyHklData& data, FcfToHklData& fcf_to_hkl,
                   SimulationData& simulation) {
  data.InsCensus = InsCensus();
  run.AutoState = 0;
  DummyRun r{ui, run, data, {}, {}};
  if (!OpenIns(r)) return;
  const WminState marker = FindWminMarker(r.ins);
  r.ins.Rewind();
  r.hkl.Open(Folder(), "DUMMY.HKL");
  FoldJobName(run.JobName);
  if (!SettleMode(r, marker)) return;
  WriteDummyList(r);
  if (r.IsAutomatic()) {
    AutomaticRun(ui, run, fcf_to_hkl, simulation, data.PatternProperties);
  } else {
    ui.ShowLine("   The file DUMMY.HKL has been written");
  }
  if (run.RunMode == 1) run.RunMode = 2;
  if (run.AutoState == 1) run.AutoState = 2;
}

}  // namespace talven
