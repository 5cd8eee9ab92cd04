// The downhill simplex, turned uphill: J. A. Nelder and R. Mead, Comput. J. 7 (1965) 308.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace talven {

struct SimplexResult {
  std::vector<double> parameters;
  double value = 0.0;
  int evaluations = 0;
};

/// Looks for a maximum with this many evaluations at most, from a simplex of the start and one step along each
/// parameter. Ends sooner where the values at all corners agree to `tolerance`. There is one parameter at least.
SimplexResult MaximiseBySimplex(const std::function<double(const std::vector<double>&)>& value,
                                const std::vector<double>& start, const std::vector<double>& steps, int evaluations,
                                double tolerance);

}  // namespace talven
