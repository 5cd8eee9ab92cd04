#include "patterns/JobInput.h"

#include <string>

namespace talven {

bool OpenJobInput(Ui& ui, RunState& run, std::string_view extension, InputFile& file) {
  if (file.Open(Folder(), run.JobFile(extension))) return true;
  run.StopFlag = 1;
  ui.ShowMessage(std::string(extension.substr(1)) + " File NOT Found");
  return false;
}

}  // namespace talven
