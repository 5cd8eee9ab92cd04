#include "patterns/formats/CifText.h"

#include <algorithm>

#include "patterns/formats/FormatText.h"

namespace talven {
namespace {

/// The first word that is not in a remark.
std::string_view FirstWord(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text)) {
    if (!word.starts_with('#')) return word;
    text.remove_prefix(std::min(text.find('\n'), text.size()));
  }
  return {};
}

}  // namespace

bool BeginsWithDataBlock(std::string_view text) {
  const std::string_view word = FirstWord(text);
  return StartsIgnoringCase(word, "data_") || StartsIgnoringCase(word, "global_");
}

bool LooksLikeCif(std::string_view text) {
  const std::string_view word = FirstWord(text);
  return BeginsWithDataBlock(text) || StartsIgnoringCase(word, "_diffraction_") ||
         StartsIgnoringCase(word, "_diffrn_") || StartsIgnoringCase(word, "_pd_");
}

}  // namespace talven
