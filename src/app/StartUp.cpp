#include "app/StartUp.h"

#include <array>

#include "app/DirectoryFile.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

constexpr int kBannerHundredths = 100;

void OpenWindow(Toolkit& toolkit) {
  toolkit.WInitialise(" ");
  toolkit.WSoundSwitch("ON");
  toolkit.WindowOpen({.flags = 7, .title = "TALVEN  by the Talven developers"});
  toolkit.WGrTextSetup(0);
  toolkit.WGrTextFont(101, 0.012, 0.02, 1);
  toolkit.IGrUnits(0, 0, 100, 300);
}

void ShowBannerForm(Toolkit& toolkit) {
  toolkit.WDialogLoad(kBannerForm);
  toolkit.WDialogSelect(kBannerForm);
  toolkit.WDialogShow(-1, -1, 0);
  toolkit.IOsWait(kBannerHundredths);
  toolkit.WDialogUnload(kBannerForm);
  toolkit.WGrAreaClear();
}

/// The text of the job name form after one showing.
std::string ShowJobNameForm(Toolkit& toolkit, std::int32_t& length) {
  toolkit.WDialogLoad(kJobNameForm);
  toolkit.WDialogSelect(kJobNameForm);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const std::string name = toolkit.WDialogGetString(job_name_field::kJobName);
  length = toolkit.WDialogGetStringLength(job_name_field::kJobName);
  toolkit.WDialogUnload(kJobNameForm);
  toolkit.WGrAreaClear();
  return name;
}

/// Asks until the name is neither refused as a name of the list file nor too long.
void AskJobName(Ui& ui, RunState& run) {
  while (true) {
    std::int32_t length = 0;
    const std::string name = ShowJobNameForm(ui.toolkit, length);
    if (name.starts_with("LIST") || name.starts_with("list")) continue;
    if (static_cast<std::size_t>(length) > kLongestJobName) {
      ui.ShowMessage("Job Name longer than 20 Characters");
      continue;
    }
    run.JobName = name;
    run.JobNameLength = length;
    return;
  }
}

char FirstCharacter(std::string_view text) {
  return text.empty() ? ' ' : text.front();
}

void StartByHand(Ui& ui, RunState& run) {
  run.DriveLetter = FirstCharacter(ui.toolkit.IOsArgument(0));
  ShowBannerForm(ui.toolkit);
  AskJobName(ui, run);
  if (const auto directory = ReadDirectoryFile(run.DriveLetter)) ui.toolkit.IOsDirChange(*directory);
  std::string name = run.JobFile(".HKL");
  ui.toolkit.WSelectFile(kJobFileFilter, kKeepDirectory, name,
                         "Find the Directory -          The file name does not matter");
  WriteDirectoryFile(run.DriveLetter, ui.toolkit.IOsDirName());
}

void StartByCaller(Ui& ui, RunState& run, std::int32_t first_argument_length) {
  ShowBannerForm(ui.toolkit);
  run.JobNameLength = first_argument_length;
  run.JobName = Columns(ui.toolkit.IOsArgument(1), 1, static_cast<std::size_t>(first_argument_length));
  run.DriveLetter = FirstCharacter(ui.toolkit.IOsArgument(2));
  if (ui.toolkit.IOsArgument(3).starts_with("MOLPAK")) run.RunMode = 1;
  ui.toolkit.IOsDirChange(RequireDirectoryFile(run.DriveLetter));
}

void ShowBanner(Ui& ui) {
  constexpr std::array<std::string_view, 5> kLines = {
      "    ****************************************",  //
      "    *****  TALVEN  X-Ray Powder Utility ****",  //
      "    ****************************************",  //
      "    *****   by the Talven developers   *****",  //
      "    ****************************************",
  };
  ui.ShowLine("", 0);
  for (const std::string_view line : kLines) ui.ShowLine(line);
}

}  // namespace

std::int32_t StartUp(Ui& ui, RunState& run) {
  run = RunState();
  ui.pane.Restart();
  OpenWindow(ui.toolkit);
  ui.line = ui.toolkit.IOsArgument(1);
  const std::int32_t first_argument_length = ui.line.TrimLine();
  if (first_argument_length <= 0) {
    StartByHand(ui, run);
  } else {
    StartByCaller(ui, run, first_argument_length);
  }
  ui.toolkit.JobSettled(run.TrimmedJobName());
  ShowBanner(ui);
  return first_argument_length;
}

}  // namespace talven
