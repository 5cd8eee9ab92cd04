// The toolkit of the terminal program: pane lines go to one stream, everything that is asked to another, and the
// answers come from a third.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Toolkit.h"
#include "ui/console/AnswerReader.h"

namespace talven {

class ConsoleToolkit : public Toolkit {
 public:
  /// `input` gives the answers, one to a line; `output` takes the pane lines and nothing else; `messages` takes forms,
  /// message boxes and refusals. With `is_interactive` a person sits there: a refused answer is asked for again, a job
  /// name can simply be typed, and `help` is answered; without, a refused answer throws RefusedAnswer.
  ConsoleToolkit(const std::vector<std::string>& arguments, std::istream& input, std::ostream& output,
                 std::ostream& messages, bool is_interactive);

  void WInitialise(std::string_view) override {}
  void WSoundSwitch(std::string_view) override {}
  void WindowOpen(const WindowRecord&) override {}
  void WindowClose() override { FlushPane(); }
  void WGrTextSetup(int) override {}
  void WGrTextFont(int, double, double, int) override {}
  void IGrUnits(double, double, double, double) override {}
  void WGrTextAt(float x, float y, std::string_view text) override;
  void WGrAreaClear() override {}
  void IOsWait(int) override {}
  std::optional<int> IOsCommand(std::string_view command, int flags) override;
  void TellHint(std::string_view hint) override;
  void TellOfProgram(std::string_view line) override;

 protected:
  int RunForm(FormState& form) override;
  void ShowForm(const FormState&) override {}
  void HideForm(const FormState&) override {}
  int AskMessage(const Message& message) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  void ShowDirectory(std::string_view directory) override;

 private:
  /// Sends the pane lines on their way: before anything is asked, another program started or the window closed. Throws
  /// FatalIoError.
  void FlushPane();
  /// Writes whole lines to the messages, after the pane lines so far.
  void Tell(std::string_view lines);

  std::ostream& output_;
  std::ostream& messages_;
  AnswerReader answers_;
};

}  // namespace talven
