#include "patterns/formats/xml/XmlText.h"

#include <algorithm>
#include <string>

#include "patterns/formats/FormatText.h"
#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

/// Bytes that the tree takes for an element and for an attribute.
constexpr std::size_t kElementSize = 72;
constexpr std::size_t kAttributeSize = 48;
constexpr std::size_t kLargestGrowth = 8;
constexpr std::size_t kSmallText = 1'000'000;

void CheckSafety(std::string_view file, std::string_view text) {
  if (text.find("<!DOCTYPE") != std::string_view::npos || text.find("<!ENTITY") != std::string_view::npos)
    FailInFile(file, "XML without a document type", "one");
  const auto elements = static_cast<std::size_t>(std::ranges::count(text, '<'));
  const auto attributes = static_cast<std::size_t>(std::ranges::count(text, '='));
  const std::size_t tree = elements * kElementSize + attributes * kAttributeSize;
  if (text.size() > kSmallText && tree > kLargestGrowth * text.size())
    FailInFile(file, "XML that holds more numbers than tags", std::to_string(elements) + " tags");
}

}  // namespace

void ParseXml(std::string_view file, std::string_view text, pugi::xml_document& document) {
  CheckSafety(file, text);
  const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size());
  if (result) return;
  const std::string_view read = text.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0)));
  const auto line = static_cast<std::size_t>(std::ranges::count(read, '\n')) + 1;
  FailAtLine(file, line, "XML", "text that is not XML or ends too early (" + std::string(result.description()) + ")");
}

pugi::xml_node FindElement(const pugi::xml_node& node, std::string_view name) {
  return node.find_node([&](const pugi::xml_node& n) { return name == n.name(); });
}

std::optional<double> PositiveNumber(std::string_view text) {
  const auto number = LeadingNumber(text);
  return number && *number > 0.0 ? number : std::nullopt;
}

std::vector<double> ReadNumberList(std::string_view file, const pugi::xml_node& list, std::string_view what) {
  std::vector<double> values;
  values.reserve(std::string_view(list.child_value()).size() / 2 + 1);
  for (const pugi::xml_node& part : list.children()) {
    std::string_view text = part.value();
    for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text)) {
      const auto number = ReadReal<double>(word);
      if (!number) FailInFile(file, "numbers as " + std::string(what), Quote(word));
      values.push_back(*number);
    }
  }
  return values;
}

}  // namespace talven
