// An FCF file of calculated values, in the narrow layout of LIST 4:
//
//     data_ABC
//     _shelx_title 'alanine'
//     _shelx_refln_list_code          4
//     _cell_length_a       5.9279
//     ...
//     loop_
//      _refln_index_h
//      ...
//      _refln_observed_status
//        1   0   2     1234.56     1234.56     12.35 o
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "crystal/CrystalModel.h"
#include "textio/TextOutput.h"

namespace talven {

/// Values as they stand in the file, with what they were divided by.
struct CalculatedList {
  std::vector<MillerIndex> indices;
  std::vector<double> squared_factors;
  /// 0, unless values would not fit their columns.
  int power_of_ten = 0;

  /// As it is told: `10^2`.
  std::string Divisor() const { return "10^" + std::to_string(power_of_ten); }
};

/// Calculates the rows of an FCF. Throws FatalIoError with `name` for a model whose sum is no number.
CalculatedList CalculateList(const CrystalModel& model, std::vector<MillerIndex> indices, std::string_view name);

/// Writes the file of a job. The value stands in both columns of F squared, and 1 % of it, but at least 0.01, as sigma.
/// The title is cut so that no reader takes its line for a row.
void WriteFcf(const CalculatedList& list, const CrystalModel& model, std::string_view job, TextOutput& fcf);

}  // namespace talven
