#include "app/run/JobModel.h"

#include "crystal/ModelFromCif.h"
#include "shelx/CheckModel.h"
#include "shelx/ReadModel.h"
#include "textio/FatalIoError.h"
#include "textio/FileNames.h"

namespace talven {

std::optional<std::string> FindSibling(const InputPath& input, std::string_view extension) {
  const auto path = input.Home().Find(input.Stem() + std::string(extension));
  if (!path) return std::nullopt;
  // A path without a folder stays so: messages and tables name files as the user does.
  const bool has_folder = ToPath(input.Text()).has_parent_path();
  return FromPath(has_folder ? *path : path->filename());
}

std::optional<std::string> FindModelFile(const InputPath& input) {
  for (const std::string_view extension : {".ins", ".res", ".cif"})
    if ("." + input.Extension() == extension) return input.Text();
  for (const std::string_view extension : {".INS", ".RES", ".CIF"})
    if (auto path = FindSibling(input, extension)) return path;
  return std::nullopt;
}

JobModel ReadJobModel(const std::string& path, bool needs_atoms) {
  InputFile file;
  OpenPath(path, file);
  JobModel job;
  if (InputPath(path).Extension() == "cif") {
    CifStructure structure = ModelFromCif(file);
    for (const ModelFault& fault : CheckModel(structure.model, {}))
      structure.notices.push_back(file.Name() + ": " + fault.text);
    job = {std::move(structure.model), std::move(structure.notices), std::move(structure.reflections)};
  } else {
    ModelReading reading = ReadModel(file);
    job = {std::move(reading.model), std::move(reading.notices), {}};
  }
  if (needs_atoms && job.model.atoms.empty()) throw FatalIoError(file.Name() + ": no atoms in it");
  return job;
}

void OpenPath(const std::string& path, InputFile& file) {
  const InputPath parts(path);
  file.OpenRequired(parts.Home(), parts.Name());
}

}  // namespace talven
