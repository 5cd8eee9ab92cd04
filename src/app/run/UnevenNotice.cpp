#include "app/run/UnevenNotice.h"

#include <algorithm>

#include "app/run/Table.h"

namespace talven {
namespace {

constexpr std::size_t kNamed = 5;

std::string NameOf(const UnevenLine& line) {
  std::string text;
  for (const std::int32_t index : {line.index.h, line.index.k, line.index.l}) text += std::to_string(index) + " ";
  return text + "at " + Cell::Fixed(line.two_theta, 2).TabText() + " (" + Cell::Fixed(line.factor, 2).TabText() +
         " times)";
}

}  // namespace

std::string UnevenNotice(const std::vector<UnevenLine>& uneven) {
  const auto weak = std::ranges::count_if(uneven, [](const UnevenLine& line) { return line.factor < 1.0; });
  std::string text = "the list is not closed under the symmetry of its structure: " + std::to_string(weak) +
                     " lines come out too weak, " + std::to_string(std::ssize(uneven) - weak) + " too strong, ";
  text += uneven.size() > kNamed ? "above all " : "which are ";
  for (std::size_t i = 0; i < std::min(uneven.size(), kNamed); ++i) text += (i > 0 ? ", " : "") + NameOf(uneven[i]);
  return text + "; --expand symmetry mends it";
}

}  // namespace talven
