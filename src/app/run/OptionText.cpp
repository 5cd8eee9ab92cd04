#include "app/run/OptionText.h"

#include <algorithm>
#include <charconv>

#include "textio/FieldInput.h"
#include "textio/FixedText.h"
#include "textio/LetterCase.h"
#include "textio/TextInput.h"

namespace talven {
namespace {

std::string Plain(double value) {
  std::string text = std::to_string(value);
  text.resize(text.find_last_not_of('0') + 1);
  return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
}

}  // namespace

CLI::Option* AddOption(CLI::App& app, const std::string& names, const std::string& value_name,
                       std::function<void(const std::string&)> take, const std::string& help) {
  return app.add_option_function<std::string>(names, take, help)
      ->type_name(value_name)
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

CLI::Option* AddSwitch(CLI::App& app, const std::string& names, bool& is_set, const std::string& help) {
  return app.add_flag(names, is_set, help)->disable_flag_override()->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

void RefuseOption(std::string_view option, std::string_view expected, std::string_view found) {
  throw CommandLineError(std::string(option) + ": expected " + std::string(expected) + ", found " + Quote(found));
}

std::string NameOption(std::string_view option, const std::string& text) {
  if (text.empty()) RefuseOption(option, "the name of a file or folder", text);
  return text;
}

double RealOption(std::string_view option, std::string_view text, double low, double high) {
  const auto value = ReadReal<double>(text);
  if (!value || *value < low || *value > high)
    RefuseOption(option, "a number from " + Plain(low) + " to " + Plain(high), text);
  return *value;
}

std::size_t CountOption(std::string_view option, std::string_view text, std::size_t most) {
  std::size_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < 1 || value > most)
    RefuseOption(option, "a whole number from 1 to " + std::to_string(most), text);
  return value;
}

std::vector<std::string> ListOption(std::string_view option, std::string_view text) {
  std::vector<std::string> items;
  for (std::string_view rest = text;;) {
    std::string item = ToLower(Trim(rest.substr(0, rest.find(','))));
    if (item.empty()) RefuseOption(option, "names with commas between", text);
    if (std::ranges::find(items, item) != items.end()) RefuseOption(option, "each name once", text);
    items.push_back(std::move(item));
    if (rest.find(',') == std::string_view::npos) return items;
    rest.remove_prefix(rest.find(',') + 1);
  }
}

}  // namespace talven
