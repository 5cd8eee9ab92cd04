#include "handlers/AutomaticRun.h"

#include <string>

#include "handlers/SimulatePattern.h"

namespace talven {
namespace {

constexpr std::string_view kDummyList = "DUMMY.HKL";

/// Deletes the job's FCF under every spelling, so that no stale one can pass for the result of this run.
void DeleteOldFcf(const RunState& run) {
  while (run.folder.Delete(run.JobFile(".FCF"))) continue;
}

/// For a job named DUMMY there is then no list left, and the copy fails without a word.
void ReplaceJobList(const RunState& run) {
  const std::string list = run.JobFile(".HKL");
  run.folder.Delete(list);
  run.folder.Copy(kDummyList, list, Spelling::kExact);
}

/// As in `C:\exe\kvrl97.exe ABC C: AUTO`. Whether it could be started, and its exit code, show in the FCF alone.
void RunRefinement(Toolkit& toolkit, const RunState& run) {
  std::string command(1, run.DriveLetter);
  command.append(":\\exe\\kvrl97.exe ").append(run.TrimmedJobName()).append(" ");
  command.append(1, run.DriveLetter).append(": AUTO");
  toolkit.IOsCommand(command, kWait);
}

}  // namespace

void AutomaticRun(Ui& ui, RunState& run, FcfToHklData& fcf_to_hkl, SimulationData& simulation) {
  DeleteOldFcf(run);
  ReplaceJobList(run);
  RunRefinement(ui.toolkit, run);
  ui.toolkit.WGrAreaClear();
  FcfToHkl(ui, run, fcf_to_hkl, run.AutoState);
  ReplaceJobList(run);
  SimulatePattern(ui, run, simulation, kHklSource);
}

}  // namespace talven
