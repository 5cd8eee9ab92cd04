#include "shelx/FcfListCode.h"

#include "textio/FixedText.h"

namespace talven {
namespace {

constexpr std::string_view kCode = "_shelx_refln_list_code";

}  // namespace

std::optional<std::string> HintForFcf(std::string_view name, std::string_view text) {
  for (std::size_t at = text.find(kCode); at != std::string_view::npos; at = text.find(kCode, text.find('\n', at))) {
    const std::string_view ahead = text.substr(0, at);
    if (!Trim(ahead.substr(ahead.rfind('\n') + 1)).empty()) continue;
    const std::string_view after = text.substr(at + kCode.size());
    const std::string_view code = Trim(after.substr(0, after.find_first_of("\r\n")));
    if (code.empty() || code == "4") return std::nullopt;
    return std::string(name) + ": holds LIST " + std::string(code) +
           ", and options 6 and 7 read LIST 4: refine once more with LIST 4 in the INS; " +
           "talven-run convert brings in measured patterns of other kinds";
  }
  return std::nullopt;
}

}  // namespace talven
