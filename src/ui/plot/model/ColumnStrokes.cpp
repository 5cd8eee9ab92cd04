#include "ui/plot/model/ColumnStrokes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace talven {
namespace {

/// What is covered already of a column: parts that do not touch, from the top.
class Cover {
 public:
  void Clear() { parts_.clear(); }

  /// Calls `is_new(top, bottom)` for each part of a stretch that was not covered before, and covers it.
  template <typename IsNew>
  void Add(int top, int bottom, const IsNew& is_new) {
    auto first = std::ranges::find_if(parts_, [&](const auto& part) { return part.second >= top; });
    auto last = first;
    int from = top;
    for (; last != parts_.end() && last->first <= bottom; ++last) {
      if (last->first > from) is_new(from, last->first);
      from = std::max(from, last->second);
    }
    if (bottom > from) is_new(from, bottom);
    std::pair<int, int> whole(top, bottom);
    if (first != last) whole = {std::min(top, first->first), std::max(bottom, std::prev(last)->second)};
    parts_.insert(parts_.erase(first, last), whole);
  }

 private:
  std::vector<std::pair<int, int>> parts_;
};

}  // namespace

ColumnStrokes::ColumnStrokes(std::size_t curves, int columns, int rows)
    : curves_(curves),
      columns_(std::max(columns, 0)),
      rows_(std::max(rows, 0)),
      reaches_(curves_ * static_cast<std::size_t>(columns_), Reach{rows_, 0}) {}

void ColumnStrokes::Widen(Reach& reach, double from, double to) const {
  const auto row = [this](double y) { return static_cast<int>(std::clamp<double>(std::floor(y), -1.0, rows_)); };
  const auto [low, high] = std::minmax(from, to);
  reach.top = std::min(reach.top, std::max(row(low), 0));
  reach.bottom = std::max(reach.bottom, std::min(row(high) + 1, rows_));
}

void ColumnStrokes::AddLine(std::size_t curve, double from_x, double from_y, double to_x, double to_y) {
  if (to_x < from_x) {
    std::swap(from_x, to_x);
    std::swap(from_y, to_y);
  }
  const double first = std::floor(from_x);
  const double count = std::floor(to_x) - first + 1.0;
  const double step = (to_y - from_y) / count;
  const double end = std::min<double>(first + count, columns_);
  for (double column = std::max(first, 0.0); column < end; ++column) {
    const double y = from_y + step * (column - first);
    Widen(reaches_[static_cast<std::size_t>(column) * curves_ + curve], y, y + step);
  }
}

std::vector<Stroke> ColumnStrokes::InSight() const {
  std::vector<Stroke> strokes;
  Cover cover;
  for (int column = 0; column < columns_; ++column) {
    cover.Clear();
    const Reach* const reaches = reaches_.data() + static_cast<std::size_t>(column) * curves_;
    for (std::size_t curve = curves_; curve-- > 0;) {
      const Reach& reach = reaches[curve];
      if (reach.bottom <= reach.top) continue;
      cover.Add(reach.top, reach.bottom, [&](int top, int bottom) { strokes.push_back({column, top, bottom, curve}); });
    }
  }
  return strokes;
}

}  // namespace talven
