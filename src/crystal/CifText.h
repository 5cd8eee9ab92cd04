// The text of a CIF taken apart, with no regard to what it means.
//
// Plain C++17, since not every compiler takes the headers of gemmi's reader, which does the work, as C++20.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace talven {

/// One data block: for each tag, in lower case and with `_` for the `.` of later dictionaries, its values; of a loop as
/// many as it has rows. What is not told (`.` or `?`) is an empty text.
struct CifBlock {
  std::string name;
  std::unordered_map<std::string, std::vector<std::string>> values;

  /// The values of a tag, none for one that is not there.
  const std::vector<std::string>& Column(const std::string& tag) const {
    static const std::vector<std::string> kNone;
    const auto found = values.find(tag);
    return found == values.end() ? kNone : found->second;
  }
  /// The single value of a tag, or the first of a loop; an empty text for none.
  std::string First(const std::string& tag) const {
    const auto& column = Column(tag);
    return column.empty() ? std::string() : column.front();
  }
};

/// The blocks of a CIF. Throws std::runtime_error with name, line and what is wrong; so it does in a program that was
/// built without gemmi.
std::vector<CifBlock> ParseCif(std::string_view text, const std::string& name);

}  // namespace talven
