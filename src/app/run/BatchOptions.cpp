#include "app/run/BatchOptions.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <istream>
#include <iterator>
#include <thread>

#include "app/run/OptionText.h"
#include "textio/FatalIoError.h"
#include "textio/InputFile.h"

namespace talven {
namespace {

constexpr std::size_t kMostThreads = 1024;
constexpr std::size_t kMostParts = 1'000'000;

/// `I/N` with I from 1 to N.
Part ParsePart(const std::string& text) {
  const std::string_view whole = text;
  const std::size_t slash = whole.find('/');
  const auto number_in = [](std::string_view digits) -> std::size_t {
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() && value <= kMostParts ? value : 0;
  };
  Part part{0, 0};
  if (slash != std::string_view::npos) part = {number_in(whole.substr(0, slash)), number_in(whole.substr(slash + 1))};
  if (part.number < 1 || part.count < 1 || part.number > part.count)
    RefuseOption("--part", "I/N, as 3/10 for the third of ten parts, I from 1 to N", text);
  return part;
}

std::size_t ProcessorCount() {
  return std::max<std::size_t>(1, std::thread::hardware_concurrency());
}

/// The names in a list: lines, of which blank ones and the CR of a CRLF don't count, or what stands between NULs.
void AppendNames(std::string_view list, bool is_parted_by_nul, std::vector<std::string>& names) {
  if (!is_parted_by_nul && list.starts_with("\xEF\xBB\xBF")) list.remove_prefix(3);
  while (!list.empty()) {
    const std::size_t end = list.find(is_parted_by_nul ? '\0' : '\n');
    std::string_view name = list.substr(0, end);
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    if (!is_parted_by_nul && name.ends_with('\r')) name.remove_suffix(1);
    if (name.find_first_not_of(is_parted_by_nul ? "" : " \t") != std::string_view::npos) names.emplace_back(name);
  }
}

std::string ReadList(const std::string& name, std::istream& standard_input) {
  if (name == "-") return {std::istreambuf_iterator<char>(standard_input), std::istreambuf_iterator<char>()};
  try {
    InputFile file;
    file.OpenRequired(Folder(), name);
    return std::string(file.Content());
  } catch (const FatalIoError& error) {
    throw CommandLineError(std::string("--files-from: ") + error.what());
  }
}

}  // namespace

void AddBatchOptions(CLI::App& app, const BatchFeatures& features, BatchOptions& options) {
  options.threads = ProcessorCount();
  app.add_option("FILE", options.files, features.files_help)->type_name("");
  AddOption(
      app, "--files-from", "LIST",
      [&options](const std::string& name) { options.files_from = NameOption("--files-from", name); },
      "reads names of inputs from a file, one to a line, - from standard input");
  AddSwitch(app, "-0,--null", options.is_list_parted_by_nul, "names in LIST are parted by NUL, as find -print0 does")
      ->needs("--files-from");
  if (features.has_parts)
    AddOption(
        app, "--part", "I/N",
        [&options](const std::string& text) {
          options.part = ParsePart(text);
          options.has_part = true;
        },
        "takes every Nth input beginning with the Ith");
  if (features.has_outputs) {
    AddOption(
        app, "-o,--output", "DIR",
        [&options](const std::string& name) { options.output_folder = NameOption("-o", name); },
        "puts the outputs into a folder, made if missing; else each goes beside its input");
    AddSwitch(app, "--replace", options.replaces,
              "lets outputs replace inputs, and INS, RES, HKL, FCF, CIF and LST files");
    AddSwitch(app, "--resume", options.resumes, "passes over inputs whose outputs are newer");
  }
  AddOption(
      app, "-j,--jobs", "N",
      [&options](const std::string& text) { options.threads = CountOption("-j", text, kMostThreads); },
      "number of threads, all processors by default");
  AddSwitch(app, "--json", options.writes_json, "writes rows as JSON lines instead of tab-separated text");
  AddSwitch(app, "-q,--quiet", options.is_quiet, "tells failures only");
}

std::vector<std::string> GatherInputs(const BatchOptions& options, std::istream& standard_input) {
  std::vector<std::string> inputs = options.files;
  if (!options.files_from.empty())
    AppendNames(ReadList(options.files_from, standard_input), options.is_list_parted_by_nul, inputs);
  if (inputs.empty())
    throw CommandLineError(options.files_from.empty() ? "no input files"
                                                      : options.files_from + ": names no input files");
  if (std::ranges::find(inputs, "") != inputs.end()) throw CommandLineError("the name of an input is empty");
  return inputs;
}

}  // namespace talven
