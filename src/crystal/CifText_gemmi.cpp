#include <algorithm>
#include <gemmi/cif.hpp>
#include <utility>

#include "crystal/CifText.h"

namespace talven {
namespace {

namespace cif = gemmi::cif;

std::string ValueOf(const std::string& raw) {
  return cif::is_null(raw) ? std::string() : cif::as_string(raw);
}

/// In lower case, and as the first dictionaries write it: `_cell.length_a` is `_cell_length_a`.
std::string NameOf(const std::string& tag) {
  std::string name = gemmi::to_lower(tag);
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

/// What the reader takes: without a mark of the encoding and the end mark of old systems, and each byte beyond ASCII as
/// `%C3`, for outside of quotes it would be refused.
std::string PlainText(std::string_view text) {
  constexpr std::string_view kEncodingMark = "\xEF\xBB\xBF";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  if (text.substr(0, kEncodingMark.size()) == kEncodingMark) text.remove_prefix(kEncodingMark.size());
  while (!text.empty() && (text.back() == '\x1A' || text.back() == '\0')) text.remove_suffix(1);
  std::string plain;
  plain.reserve(text.size());
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80U) {
      plain += c;
    } else {
      plain += '%';
      plain += kDigits[byte / 16U];
      plain += kDigits[byte % 16U];
    }
  }
  return plain;
}

void AddLoop(const cif::Loop& loop, CifBlock& block) {
  const std::size_t width = loop.tags.size();
  for (std::size_t column = 0; column < width; ++column) {
    auto& values = block.values[NameOf(loop.tags[column])];
    values.clear();
    for (std::size_t i = column; i < loop.values.size(); i += width) values.push_back(ValueOf(loop.values[i]));
  }
}

}  // namespace

std::vector<CifBlock> ParseCif(std::string_view text, const std::string& name) {
  const std::string plain = PlainText(text);
  const cif::Document document = cif::read_memory(plain.data(), plain.size(), name.c_str());
  std::vector<CifBlock> blocks;
  for (const cif::Block& from : document.blocks) {
    CifBlock block;
    block.name = from.name;
    for (const cif::Item& item : from.items) {
      if (item.type == cif::ItemType::Pair) block.values[NameOf(item.pair[0])] = {ValueOf(item.pair[1])};
      if (item.type == cif::ItemType::Loop) AddLoop(item.loop, block);
    }
    blocks.push_back(std::move(block));
  }
  return blocks;
}

}  // namespace talven
