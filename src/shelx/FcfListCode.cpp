#include "shelx/FcfListCode.h"

#include "textio/FixedText.h"
#include "textio/TextInput.h"

namespace talven {
namespace {

constexpr std::string_view kCode = "_shelx_refln_list_code";

}  // namespace

std::optional<std::string> HintForFcf(std::string_view name, std::string_view text) {
  TextInput fcf{std::string(name), std::string(text)};
  for (std::string_view line; fcf.ReadLine(line);) {
    line = Trim(line);
    if (!line.starts_with(kCode)) continue;
    const std::string_view code = Trim(line.substr(kCode.size()));
    if (code.empty() || code == "4") return std::nullopt;
    return std::string(name) + ": holds LIST " + std::string(code) +
           ", and options 6 and 7 read LIST 4: refine once more with LIST 4 in the INS; " +
           "talven-run convert brings in measured patterns of other kinds";
  }
  return std::nullopt;
}

}  // namespace talven
