#include "shelx/WriteFcf.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "crystal/StructureFactors.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

/// A blank stays in front of each value: readers know a row by the number of its texts.
constexpr double kLargestValue = 9.99e7;
constexpr double kSmallestSigma = 0.01;

/// Lines stay short of column 48, where readers look for the status letter, and below seven texts, by which they know
/// a row.
constexpr std::size_t kLongestLine = 47;
constexpr std::size_t kMostWords = 4;
constexpr std::string_view kBlock = "data_";

std::string TitleText(std::string_view title, std::size_t room) {
  std::string text;
  std::size_t words = 0;
  for (const char c : title) {
    if (text.size() == room) break;
    const bool is_blank = c == ' ' || c == '\t';
    if (is_blank && (text.empty() || text.back() == ' ')) continue;
    if (is_blank && ++words == kMostWords) break;
    const bool is_plain = c > ' ' && c <= '~' && c != '\'';
    text += is_blank ? ' ' : is_plain ? c : '?';
  }
  return text;
}

/// The name of a data block has no blanks, and nothing beyond ASCII.
std::string BlockName(std::string_view job) {
  std::string name(job.substr(0, kLongestLine - kBlock.size()));
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c <= ' ' || c > '~'; }, '_');
  return name;
}

void WriteHead(const CalculatedList& list, const CrystalModel& model, std::string_view job, TextOutput& fcf) {
  constexpr std::string_view kTitle = "_shelx_title '";
  fcf.WriteLine(std::string(kBlock) + BlockName(job));
  const std::string title = TitleText(model.title, kLongestLine - kTitle.size() - 1);
  fcf.WriteLine(std::string(kTitle) + title + "'");
  fcf.WriteLine("_shelx_refln_list_code          4");
  if (list.power_of_ten != 0) fcf.WriteLine("# F squared divided by " + list.Divisor());
  const Lattice& cell = model.lattice;
  const std::pair<std::string_view, double> items[] = {
      {"_cell_length_a    ", cell.a},     {"_cell_length_b    ", cell.b},    {"_cell_length_c    ", cell.c},
      {"_cell_angle_alpha ", cell.alpha}, {"_cell_angle_beta  ", cell.beta}, {"_cell_angle_gamma ", cell.gamma}};
  for (const auto& [name, value] : items) fcf.WriteLine(Record().A(name).F(value, 12, 4));
  fcf.WriteLine("loop_");
  for (const std::string_view name :
       {"index_h", "index_k", "index_l", "F_squared_calc", "F_squared_meas", "F_squared_sigma", "observed_status"})
    fcf.WriteLine(Record().A(" _refln_").A(name));
}

}  // namespace

CalculatedList CalculateList(const CrystalModel& model, std::vector<MillerIndex> indices, std::string_view name) {
  CalculatedList list{.indices = std::move(indices), .squared_factors = {}};
  list.squared_factors = CalculateSquaredFactors(model, list.indices);
  double largest = 0.0;
  for (const double value : list.squared_factors) {
    if (!std::isfinite(value))
      throw FatalIoError(std::string(name) + ": its displacements give an F squared beyond all numbers");
    largest = std::max(largest, value);
  }
  double divisor = 1.0;
  for (; largest / divisor > kLargestValue; divisor *= 10.0) ++list.power_of_ten;
  if (list.power_of_ten != 0)
    for (double& value : list.squared_factors) value /= divisor;
  return list;
}

void WriteFcf(const CalculatedList& list, const CrystalModel& model, std::string_view job, TextOutput& fcf) {
  WriteHead(list, model, job, fcf);
  Record row;
  for (std::size_t i = 0; i < list.indices.size(); ++i) {
    const MillerIndex& index = list.indices[i];
    const double value = list.squared_factors[i];
    row.Clear();
    row.I(index.h, 4).I(index.k, 4).I(index.l, 4).F(value, 12, 2).F(value, 12, 2);
    fcf.WriteLine(row.F(std::max(kSmallestSigma, 0.01 * value), 10, 2).A(" o"));
  }
}

}  // namespace talven
