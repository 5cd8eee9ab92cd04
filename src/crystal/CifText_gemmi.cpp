#include <gemmi/cif.hpp>
#include <utility>

#include "crystal/CifText.h"

namespace talven {
namespace {

namespace cif = gemmi::cif;

std::string ValueOf(const std::string& raw) {
  return cif::is_null(raw) ? std::string() : cif::as_string(raw);
}

void AddLoop(const cif::Loop& loop, CifBlock& block) {
  const std::size_t width = loop.tags.size();
  for (std::size_t column = 0; column < width; ++column) {
    auto& values = block.values[gemmi::to_lower(loop.tags[column])];
    values.clear();
    for (std::size_t i = column; i < loop.values.size(); i += width) values.push_back(ValueOf(loop.values[i]));
  }
}

}  // namespace

std::vector<CifBlock> ParseCif(std::string_view text, const std::string& name) {
  const cif::Document document = cif::read_memory(text.data(), text.size(), name.c_str());
  std::vector<CifBlock> blocks;
  for (const cif::Block& from : document.blocks) {
    CifBlock block;
    block.name = from.name;
    for (const cif::Item& item : from.items) {
      if (item.type == cif::ItemType::Pair) block.values[gemmi::to_lower(item.pair[0])] = {ValueOf(item.pair[1])};
      if (item.type == cif::ItemType::Loop) AddLoop(item.loop, block);
    }
    blocks.push_back(std::move(block));
  }
  return blocks;
}

}  // namespace talven
