#include "app/run/OutputPlan.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <unordered_map>

#include "app/run/CommandLineError.h"
#include "textio/FileNames.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

/// Kinds of files that come from elsewhere, by their extensions.
constexpr std::array<std::string_view, 6> kBroughtIn = {".ins", ".res", ".hkl", ".fcf", ".cif", ".lst"};

/// Folders by the names under which a call knows them, each with its own path and its entries by folded name. A folder
/// is read once, since one look-up of a name in other case would read all of it.
class KnownFolders {
 public:
  struct Entry {
    std::string path;
    std::unordered_map<std::string, std::string> names;
  };

  const Entry& Of(const fs::path& folder) {
    const auto [place, is_new] = folders_.try_emplace(FromPath(folder));
    if (is_new) place->second = Read(folder);
    return place->second;
  }

 private:
  static Entry Read(const fs::path& folder) {
    std::error_code error;
    const fs::path canonical = fs::weakly_canonical(folder, error);
    Entry entry{.path = FromPath(error ? folder : canonical), .names = {}};
    for (fs::directory_iterator i(folder, error), end; !error && i != end; i.increment(error)) {
      std::string name = FromPath(i->path().filename());
      std::string& known = entry.names[ToLower(name)];
      if (known.empty() || name < known) known = std::move(name);
    }
    return entry;
  }

  std::unordered_map<std::string, Entry> folders_;
};

bool IsBroughtIn(const fs::path& path) {
  return std::ranges::find(kBroughtIn, ToLower(FromPath(path.extension()))) != kBroughtIn.end();
}

/// Gathers refusals, so that one call tells several.
class Refusals {
 public:
  void Add(const std::string& text) {
    if (++count_ <= kMostTold) text_ += (text_.empty() ? "" : "\n") + text;
  }
  void ThrowAny() const {
    if (count_ == 0) return;
    const std::string more = count_ > kMostTold ? "\nand " + std::to_string(count_ - kMostTold) + " more" : "";
    throw CommandLineError(text_ + more);
  }

 private:
  static constexpr std::size_t kMostTold = 5;
  std::string text_;
  std::size_t count_ = 0;
};

class Planner {
 public:
  Planner(const std::vector<std::string>& inputs, const OutputRules& rules) : inputs_(inputs), rules_(rules) {
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      const InputPath input(inputs[i]);
      inputs_by_key_.try_emplace(Key(input.Home().Directory(), input.Name()), i);
    }
  }

  PlannedInput Plan(std::size_t index, bool is_own) {
    PlannedInput planned{.input = InputPath(inputs_[index]), .outputs = {}, .is_done = false};
    for (const std::string& name : rules_.names(planned.input)) planned.outputs.push_back(PathOf(planned.input, name));
    for (const std::string& output : planned.outputs) CheckForAll(index, output);
    if (!is_own) return planned;
    planned.is_done = rules_.resumes && AreNewer(planned.outputs, rules_.sources(planned.input));
    if (planned.is_done || rules_.replaces) return planned;
    for (const std::string& output : planned.outputs) CheckKind(output);
    return planned;
  }

  void ThrowAny() const { refusals_.ThrowAny(); }

 private:
  std::string Key(const fs::path& folder, std::string_view name) {
    return folders_.Of(folder).path + "/" + ToLower(name);
  }
  std::string KeyOf(const std::string& path) {
    const InputPath parts(path);
    return Key(parts.Home().Directory(), parts.Name());
  }

  std::string PathOf(const InputPath& input, const std::string& name) {
    const bool has_own_folder = ToPath(input.Text()).has_parent_path();
    const fs::path folder = rules_.folder.empty() ? input.Home().Directory() : ToPath(rules_.folder);
    const auto& names = folders_.Of(folder).names;
    const auto existing = names.find(ToLower(name));
    std::error_code error;
    const bool is_there = fs::exists(folder / ToPath(name), error);
    const fs::path file = ToPath(is_there || existing == names.end() ? name : existing->second);
    return FromPath(rules_.folder.empty() && !has_own_folder ? file : folder / file);
  }

  /// What must not be in any part of a call.
  void CheckForAll(std::size_t index, const std::string& output) {
    std::string key = KeyOf(output);
    const auto input = inputs_by_key_.find(key);
    if (input != inputs_by_key_.end() && !rules_.replaces)
      refusals_.Add(inputs_[input->second] + ": is an input and would be replaced: give -o DIR or --replace");
    const auto [other, is_new] = outputs_by_key_.try_emplace(std::move(key), index);
    if (!is_new)
      refusals_.Add(output + ": would be written for " + inputs_[other->second] + " and again for " + inputs_[index]);
  }

  void CheckKind(const std::string& output) {
    const fs::path path = ToPath(output);
    std::error_code error;
    if (!IsBroughtIn(path)) return;
    if (inputs_by_key_.contains(KeyOf(output)) || !fs::exists(fs::symlink_status(path, error))) return;
    refusals_.Add(output + ": exists and may not be an output: give -o DIR or --replace");
  }

  static bool AreNewer(const std::vector<std::string>& outputs, const std::vector<std::string>& sources) {
    std::error_code error;
    fs::file_time_type last = fs::file_time_type::min();
    for (const std::string& source : sources) {
      const fs::file_time_type time = fs::last_write_time(ToPath(source), error);
      if (error) return false;
      last = std::max(last, time);
    }
    return !outputs.empty() && std::ranges::all_of(outputs, [&error, last](const std::string& output) {
      const fs::file_time_type time = fs::last_write_time(ToPath(output), error);
      return !error && time > last;
    });
  }

  const std::vector<std::string>& inputs_;
  const OutputRules& rules_;
  KnownFolders folders_;
  std::unordered_map<std::string, std::size_t> inputs_by_key_;
  std::unordered_map<std::string, std::size_t> outputs_by_key_;
  Refusals refusals_;
};

}  // namespace

std::vector<PlannedInput> PlanOutputs(const std::vector<std::string>& inputs,
                                      const std::function<bool(std::size_t)>& is_own, const OutputRules& rules) {
  Planner planner(inputs, rules);
  std::vector<PlannedInput> plan;
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    PlannedInput planned = planner.Plan(i, is_own(i));
    if (is_own(i)) plan.push_back(std::move(planned));
  }
  planner.ThrowAny();
  return plan;
}

void CheckCommonOutput(std::string_view option, const std::string& output, const std::vector<std::string>& inputs) {
  std::error_code error;
  const fs::path path = ToPath(output);
  const bool is_input =
      std::ranges::any_of(inputs, [&](const std::string& input) { return fs::equivalent(ToPath(input), path, error); });
  if (is_input || (IsBroughtIn(path) && fs::exists(path, error)))
    throw CommandLineError(std::string(option) + ": " + output + " exists and may not be replaced");
}

}  // namespace talven
