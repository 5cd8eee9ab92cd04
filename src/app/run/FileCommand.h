// A command that does the same work on each input by itself.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/run/BatchCommand.h"
#include "app/run/InputPath.h"
#include "app/run/OutputPlan.h"
#include "textio/TextOutput.h"

namespace talven {

/// What came of an input.
struct FileResult {
  Row row;
  /// What was noticed on the way, each on a line.
  std::vector<std::string> notices;
  /// Why it failed; empty if it did not. The other inputs go on.
  std::string failure;
  /// The outputs in the order of their names.
  std::vector<std::unique_ptr<OutputText>> outputs;
  /// Text that the command gathers over all inputs, in their order.
  std::string common_text;
};

class FileCommand : public BatchCommand {
 public:
  void Run(const std::vector<std::string>& inputs, const BatchOptions& options, Reporter& reporter) final;

 protected:
  /// Checks what only all options together tell, and takes inputs off the list that are not to be worked on. Throws
  /// CommandLineError.
  virtual void Prepare(std::vector<std::string>& /*inputs*/) {}
  /// Names of the outputs of an input, without a folder.
  virtual std::vector<std::string> OutputNames(const InputPath& /*input*/) const { return {}; }
  /// Paths of the files that the outputs of an input are made of.
  virtual std::vector<std::string> Sources(const InputPath& input) const { return {input.Text()}; }
  /// Works on one input, in any thread: everything is made in memory, and written by the caller. Of an input that
  /// is done already only the row is wanted. Whatever it throws is told as the input's failure.
  virtual FileResult Work(const PlannedInput& planned) const = 0;
  /// Takes the common text of the next input in order.
  virtual void Gather(const std::string& /*common_text*/) {}
  /// Called at the end, after all inputs or after those that were done before a stop signal. Throws FatalIoError.
  virtual void Finish() {}

 private:
  FileResult WorkAndWrite(const PlannedInput& planned) const;
  void Report(const PlannedInput& planned, const FileResult& result, Reporter& reporter);
};

}  // namespace talven
