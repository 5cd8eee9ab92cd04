#include "handlers/JobInput.h"

#include <string>

namespace talven {

bool OpenJobInput(Ui& ui, RunState& run, std::string_view extension, InputFile& file, std::string_view told_as) {
  if (file.Open(run.folder, run.JobFile(extension))) return true;
  run.StopFlag = 1;
  ui.ShowMessage((told_as.empty() ? std::string(extension.substr(1)) + " File" : std::string(told_as)) + " NOT Found");
  return false;
}

}  // namespace talven
