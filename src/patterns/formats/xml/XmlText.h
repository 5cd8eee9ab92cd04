// XML from files that anybody may have made.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace talven {

/// Parses a text. Throws FatalIoError with the line for what is no XML; XML with a document type, for its entities may
/// grow without end, and XML of so many elements that its tree would pass ten times the text are refused.
void ParseXml(std::string_view file, std::string_view text, pugi::xml_document& document);

/// The first element of a name anywhere below a node, in the order of the text; an empty node if there is none.
pugi::xml_node FindElement(const pugi::xml_node& node, std::string_view name);

/// The number in an element or attribute; nothing if there is none or none above 0.
std::optional<double> PositiveNumber(std::string_view text);

/// The numbers of a list parted by blanks and remarks, none for an empty node. Throws FatalIoError for any other word;
/// `what` names the list.
std::vector<double> ReadNumberList(std::string_view file, const pugi::xml_node& list, std::string_view what);

}  // namespace talven
