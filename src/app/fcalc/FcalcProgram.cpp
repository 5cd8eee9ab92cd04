#include "app/fcalc/FcalcProgram.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "shelx/ReadIndices.h"
#include "shelx/ReadModel.h"
#include "shelx/WriteFcf.h"
#include "textio/FatalIoError.h"
#include "textio/FixedText.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr std::size_t kMostArguments = 4;

constexpr std::string_view kUsage =
    "usage: talven-fcalc JOB [DRIVE: [AUTO]]\n"
    "\n"
    "Calculates F squared of the model in JOB.INS for the rows of JOB.HKL and writes JOB.fcf.\n"
    "\n"
    "  JOB           name of the job, whose files lie in the current directory\n"
    "  DRIVE:, AUTO  what an automatic run of talven adds; they change nothing\n"
    "\n"
    "  -h, --help    prints this text\n"
    "  --version     prints the version\n"
    "\n"
    "The manual is in share/doc/talven of the installation (html/automatic.html or automatic.md), and in docs of the "
    "source.\n";

bool IsCommandLine(const std::vector<std::string>& arguments) {
  if (arguments.size() < 2 || arguments.size() > kMostArguments) return false;
  if (arguments[1].empty() || arguments[1].starts_with('-')) return false;
  if (arguments.size() > 2 && !(arguments[2].size() == 2 && arguments[2][1] == ':')) return false;
  return arguments.size() < kMostArguments || arguments[3] == "AUTO";
}

/// Writes the file under another name and gives it its own when it is whole.
void WriteWhole(const Folder& folder, const std::string& name, const CalculatedList& list, const CrystalModel& model,
                std::string_view job) {
  const std::string unfinished = name + ".unfinished";
  const auto path = folder.FindForWriting(name);
  if (!path) throw FatalIoError(name + ": cannot be opened for writing: there is no such drive");
  folder.Delete(unfinished);  // Should it be a link, what it points to stays.
  try {
    OutputFile output;
    output.Open(folder, unfinished);
    WriteFcf(list, model, job, output);
    output.Close();
    std::error_code error;
    std::filesystem::rename(*folder.Find(unfinished), *path, error);
    if (error) throw FatalIoError(name + ": cannot be written: " + error.message());
  } catch (const FatalIoError&) {
    folder.Delete(unfinished);
    throw;
  }
}

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void Calculate(const std::string& job, std::ostream& messages) {
  const Folder folder;
  InputFile ins;
  ins.OpenRequired(folder, job + ".INS");
  const ModelReading reading = ReadModel(ins);
  for (const std::string& notice : reading.notices) messages << "talven-fcalc: " << notice << '\n';
  const CrystalModel& model = reading.model;
  if (model.atoms.empty()) ins.Fail("atom rows", "none up to here");
  InputFile hkl;
  hkl.OpenRequired(folder, job + ".HKL");
  IndexList rows = ReadIndices(hkl);
  if (rows.indices.empty()) hkl.Fail("rows of h, k and l", "none up to here");
  const CalculatedList list = CalculateList(model, std::move(rows.indices), ins.Name());
  const std::string fcf = job + ".fcf";
  WriteWhole(folder, fcf, list, model, job);
  const Record wavelength = Record().F(model.wavelength, 9, 5);
  messages << "talven-fcalc: " << ins.Name() << ": " << Counted(model.atoms.size(), "atom") << ", "
           << Counted(model.symmetry.Operators().size(), "operator") << ", wavelength " << Trim(wavelength.Text())
           << " Angstrom\n";
  if (list.power_of_ten != 0)
    messages << "talven-fcalc: " << fcf << ": values are divided by " << list.Divisor() << '\n';
  messages << "talven-fcalc: " << fcf << ": " << Counted(list.indices.size(), "row");
  if (rows.repeated > 0) messages << ", " << rows.repeated << " passed over as repeated";
  messages << std::endl;
}

}  // namespace

int RunFcalc(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& messages) {
  const std::string_view first = arguments.size() > 1 ? std::string_view(arguments[1]) : "";
  if (first == "--help" || first == "-h" || first == "--version") {
    if (first == "--version") {
      output << "talven-fcalc " << TALVEN_VERSION << '\n';
    } else {
      output << kUsage;
    }
    return output.flush() ? 0 : 1;
  }
  if (!IsCommandLine(arguments)) {
    messages << kUsage << std::flush;
    return 2;
  }
  try {
    Calculate(arguments[1], messages);
    return 0;
  } catch (const FatalIoError& error) {
    messages << "talven-fcalc: " << error.what() << std::endl;
    return 1;
  }
}

}  // namespace talven
