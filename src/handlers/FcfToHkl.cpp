#include "handlers/FcfToHkl.h"

#include "handlers/JobInput.h"
#include "shelx/FcfListCode.h"
#include "shelx/HklFromFcf.h"
#include "textio/OutputFile.h"

namespace talven {

void FcfToHkl(Ui& ui, RunState& run, FcfToHklData& data, std::int32_t quiet_flag) {
  InputFile fcf;
  if (!OpenJobInput(ui, run, ".fcf", fcf, "FCF File")) return;
  TellHint(ui, HintForFcf(fcf.Name(), fcf.Content()));
  OutputFile hkl;
  hkl.Open(run.folder, "DUMMY.HKL");
  HklFromFcf list = WriteHklFromFcf(fcf, HklScale::kAsLongAsTheyFit, data.Sigma, hkl);
  if (list.too_large) {
    const HklScale scale = list.unreadable ? HklScale::kAsTheyAre : HklScale::kHundredth;
    fcf.Rewind();
    hkl.Rewind();
    list = WriteHklFromFcf(fcf, scale, data.Sigma, hkl);
  }
  if (list.unreadable) fcf.Fail("h, k, l and a calculated F squared", Quote(list.unreadable_text));
  ui.line = "   The file DUMMY.HKL has been written";
  if (quiet_flag == 0) ui.pane.WriteTextLine(1);
  hkl.Close();
}

}  // namespace talven
