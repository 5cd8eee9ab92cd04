#include "patterns/formats/cif/ParseCif.h"

#include <exception>
#include <gemmi/cif.hpp>

#include "textio/FatalIoError.h"

namespace talven {
namespace {

/// The number of the line in a message of the parser, "NAME:12:3(345): ...".
std::size_t LineOf(const std::string& message, const std::string& name) {
  std::size_t line = 0;
  for (std::size_t i = name.size() + 1; i < message.size() && message[i] >= '0' && message[i] <= '9'; ++i)
    line = line * 10 + static_cast<std::size_t>(message[i] - '0');
  return line;
}

gemmi::cif::Document Parse(const std::string& name, std::string_view text) {
  try {
    return gemmi::cif::read_memory(text.data(), text.size(), name.c_str());
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    const std::string message = error.what();
    const std::size_t reason = message.rfind(": ");
    FailAtLine(name, LineOf(message, name), "CIF",
               "something else (" + message.substr(reason == std::string::npos ? 0 : reason + 2) + ")");
  }
}

RawCifBlock Take(gemmi::cif::Block& from) {
  RawCifBlock block;
  block.name = from.name;
  for (gemmi::cif::Item& item : from.items) {
    if (item.type == gemmi::cif::ItemType::Pair)
      block.items.emplace_back(std::move(item.pair[0]), std::move(item.pair[1]));
    if (item.type != gemmi::cif::ItemType::Loop || item.loop.tags.empty()) continue;
    block.loops.emplace_back();
    block.loops.back().tags = std::move(item.loop.tags);
    block.loops.back().values = std::move(item.loop.values);
    block.loops.back().line = static_cast<std::size_t>(item.line_number);
  }
  return block;
}

}  // namespace

std::vector<RawCifBlock> ParseCif(const std::string& name, std::string_view text) {
  gemmi::cif::Document document = Parse(name, text);
  std::vector<RawCifBlock> blocks;
  for (gemmi::cif::Block& block : document.blocks) blocks.push_back(Take(block));
  return blocks;
}

}  // namespace talven
