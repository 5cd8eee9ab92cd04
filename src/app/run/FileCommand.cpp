#include "app/run/FileCommand.h"

#include <exception>
#include <filesystem>
#include <new>
#include <system_error>

#include "app/run/CommandLineError.h"
#include "app/run/StopSignal.h"
#include "app/run/WholeFiles.h"
#include "app/run/WorkInOrder.h"
#include "textio/FatalIoError.h"
#include "textio/FileNames.h"

namespace talven {
namespace {

void MakeFolder(const std::string& folder) {
  if (folder.empty()) return;
  std::error_code error;
  std::filesystem::create_directories(ToPath(folder), error);
  if (!std::filesystem::is_directory(ToPath(folder), error))
    throw CommandLineError("-o: " + folder + ": cannot be made, or is no folder");
}

void WriteOutputs(const PlannedInput& planned, const FileResult& result) {
  std::vector<WholeFile> files;
  for (std::size_t i = 0; i < result.outputs.size(); ++i)
    files.push_back({planned.outputs.at(i), result.outputs[i]->Text()});
  WriteWholeFiles(files);
}

/// Readers say of a folder only that it is no file.
void RefuseFolder(const InputPath& input) {
  std::error_code error;
  if (std::filesystem::is_directory(ToPath(input.Text()), error))
    throw FatalIoError(input.Text() + ": is a folder: name the files in it, or list them with --files-from");
}

}  // namespace

void FileCommand::Run(const std::vector<std::string>& inputs, const BatchOptions& options, Reporter& reporter) {
  std::vector<std::string> files = inputs;
  Prepare(files);
  const OutputRules rules{.folder = options.output_folder,
                          .replaces = options.replaces,
                          .resumes = options.resumes,
                          .names = [this](const InputPath& input) { return OutputNames(input); },
                          .sources = [this](const InputPath& input) { return Sources(input); }};
  const Part part = options.part;
  const std::vector<PlannedInput> plan = PlanOutputs(
      files, [part](std::size_t i) { return i % part.count == part.number - 1; }, rules);
  MakeFolder(options.output_folder);
  reporter.BeginTable(TableColumns());
  WorkInOrder<FileResult> work;
  std::size_t done = 0;
  work.work = [this, &plan](std::size_t i) { return WorkAndWrite(plan[i]); };
  work.stops = [] { return StopSignal() != 0; };
  work.idle = [&] { reporter.ShowProgress(done, plan.size()); };
  work.take = [&](std::size_t i, const FileResult& result) {
    Report(plan[i], result, reporter);
    reporter.ShowProgress(++done, plan.size());
  };
  work.Run(plan.size(), options.threads);
  Finish();
  if (done < plan.size())
    reporter.Notice("talven-run", "stopped, " + std::to_string(done) + " of " + std::to_string(plan.size()) + " done");
}

FileResult FileCommand::WorkAndWrite(const PlannedInput& planned) const {
  FileResult result;
  try {
    RefuseFolder(planned.input);
    result = Work(planned);
    if (!planned.is_done && result.failure.empty()) WriteOutputs(planned, result);
  } catch (const std::bad_alloc&) {
    result.failure = "there is not enough memory";
  } catch (const std::exception& error) {
    result.failure = error.what();
  }
  result.outputs.clear();
  return result;
}

void FileCommand::Report(const PlannedInput& planned, const FileResult& result, Reporter& reporter) {
  const std::string& file = planned.input.Text();
  for (const std::string& notice : result.notices) reporter.Notice(file, notice);
  if (result.failure.empty()) {
    Gather(result.common_text);
    reporter.AddRow(result.row);
  } else {
    reporter.Fail(file, result.failure);
    reporter.AddRow({Cell::Text(file)}, result.failure);
  }
}

}  // namespace talven
