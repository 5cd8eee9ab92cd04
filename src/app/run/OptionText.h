// Options whose values are read and refused in this program's own words.
#pragma once

#include <CLI/App.hpp>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "app/run/CommandLineError.h"

namespace talven {

/// Adds an option with one value, which may be given once. `take` throws CommandLineError for a value that it refuses.
CLI::Option* AddOption(CLI::App& app, const std::string& names, const std::string& value_name,
                       std::function<void(const std::string&)> take, const std::string& help);
/// Adds a switch, which may be given once.
CLI::Option* AddSwitch(CLI::App& app, const std::string& names, bool& is_set, const std::string& help);

/// Throws CommandLineError: `--step: expected a number from 0.001 to 5, found "x"`.
[[noreturn]] void RefuseOption(std::string_view option, std::string_view expected, std::string_view found);

/// The name of a file or folder, as it is. Throws CommandLineError for an empty one.
std::string NameOption(std::string_view option, const std::string& text);

/// A real number within bounds (see ReadReal), and a count of at least 1. Throw CommandLineError.
double RealOption(std::string_view option, std::string_view text, double low, double high);
std::size_t CountOption(std::string_view option, std::string_view text, std::size_t most);

/// The items of a list parted by commas, in lower case, without blanks around them. Throws CommandLineError for an
/// empty item or one that comes twice.
std::vector<std::string> ListOption(std::string_view option, std::string_view text);

}  // namespace talven
