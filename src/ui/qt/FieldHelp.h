// What the fields of the forms mean, as tool tips and What's This texts tell it.
#pragma once

#include <string_view>

namespace talven {

struct FieldHelp {
  /// One line: what the field is, with its unit.
  std::string_view brief = {};
  /// What it does, and what else is good to know.
  std::string_view text = {};
};

/// The help of a field; empty for one that has none.
FieldHelp HelpFor(int form, int field);

/// Where the manual tells about a form: the name of the page without its ending, and a word to look for there.
struct ManualPlace {
  std::string_view page;
  std::string_view word;
};
/// For form 0, none being asked, the page about the window.
ManualPlace ManualPlaceOf(int form);

}  // namespace talven
