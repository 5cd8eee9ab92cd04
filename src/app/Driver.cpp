#include "app/Driver.h"

#include <array>

#include "app/StartUp.h"
#include "handlers/ComparePatterns.h"
#include "handlers/PatternConversions.h"
#include "handlers/ReformatIng.h"
#include "handlers/SimulatePattern.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

constexpr std::int32_t kUnattendedOption = 5;

void SimulateFromHkl(Ui& ui, Program& program) {
  SimulatePattern(ui, program.run, *program.simulation, kHklSource);
}
void SimulateFromFcf(Ui& ui, Program& program) {
  SimulatePattern(ui, program.run, *program.simulation, kFcfSource);
}
void WriteDummyHkl(Ui& ui, Program& program) {
  InsToDummyHkl(ui, program.run, program.ins_to_dummy_hkl, program.fcf_to_hkl, *program.simulation);
}
void WriteHklFromFcf(Ui& ui, Program& program) {
  FcfToHkl(ui, program.run, program.fcf_to_hkl, 0);
}
void ConvertCif(Ui& ui, Program& program) {
  CifToIng(ui, program.run, program.cif_names);
}
void ConvertIngToCif(Ui& ui, Program& program) {
  IngToCif(ui, program.run);
}
void Reformat(Ui& ui, Program& program) {
  ReformatIng(ui, program.run, *program.reformat);
}
void ConvertIngToTxt(Ui& ui, Program& program) {
  IngToTxt(ui, program.run);
}
void ConvertTxt(Ui& ui, Program& program) {
  TxtToIng(ui, program.run);
}

/// Handlers by option number.
using Handler = void (*)(Ui&, Program&);
constexpr std::array<Handler, 9> kHandlers = {
    SimulateFromHkl,  // 1  HKL to ING, CPI, XY, PAT
    ConvertCif,       // 2  CIF to ING
    ConvertIngToCif,  // 3  ING to CIF
    Reformat,         // 4  reformat ING
    WriteDummyHkl,    // 5  INS to ING or DUMMY.HKL
    WriteHklFromFcf,  // 6  FCF to HKL
    SimulateFromFcf,  // 7  FCF to ING, CPI, XY, PAT
    ConvertIngToTxt,  // 8  ING to ASCII
    ConvertTxt,       // 9  XY to ING
};

struct Choice {
  std::int32_t option = 1;
  bool compare = false;
  bool leave = false;
};

Choice AskOption(Toolkit& toolkit) {
  Choice choice;
  toolkit.WDialogLoad(kOptionForm);
  toolkit.WDialogSelect(kOptionForm);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  choice.option = toolkit.WDialogGetRadioButton(option_field::kOption);
  choice.compare = toolkit.WDialogGetCheckBox(option_field::kCompare) == 1;
  toolkit.WDialogUnload(kOptionForm);
  toolkit.WGrAreaClear();
  choice.leave = toolkit.WDialogQuery(kExitButtonQuery) != kOkButton;
  return choice;
}

void RunOptions(Ui& ui, Program& program) {
  RunState& run = program.run;
  while (run.RunMode != 2 && run.AutoState != 2) {
    Choice choice{.option = kUnattendedOption};
    if (run.RunMode == 0) {
      choice = AskOption(ui.toolkit);
      if (choice.compare) {
        ComparePatterns(ui, run.folder, program.comparison);
        ui.toolkit.WGrAreaClear();
        continue;
      }
      if (choice.leave) return;
    }
    run.StopFlag = 0;
    kHandlers.at(static_cast<std::size_t>(choice.option - 1))(ui, program);
    if (run.StopFlag == 1) return;
  }
}

/// Starts at most one program: the viewer after an automatic run, else the suite if it started this one.
int Leave(Ui& ui, const RunState& run, std::int32_t first_argument_length) {
  const std::string exe = run.DriveLetter + std::string(":\\exe\\");
  const std::string job(run.TrimmedJobName());
  if (run.AutoState > 0 && run.RunMode == 0)
    return ui.toolkit.IOsExecute(exe + "kestra.exe " + job + " " + run.DriveLetter + ":");
  ui.toolkit.WindowClose();
  if (first_argument_length > 0 && run.RunMode == 0) return ui.toolkit.IOsExecute(exe + "mirade.exe  " + job);
  return kExitNormal;
}

}  // namespace

int RunDriver(Ui& ui, Program& program) {
  const std::int32_t first_argument_length = StartUp(ui, program.run);
  RunOptions(ui, program);
  CloseComparisonLog(program.comparison);
  return Leave(ui, program.run, first_argument_length);
}

}  // namespace talven
