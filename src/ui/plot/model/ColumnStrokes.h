// Many curves on one picture as upright strokes, one for each curve and column, and what of them is in sight.
#pragma once

#include <cstddef>
#include <vector>

namespace talven {

/// Pixels, from `top` to before `bottom`.
struct Stroke {
  int column = 0;
  int top = 0;
  int bottom = 0;
  std::size_t curve = 0;
};

/// A curve with as many points as columns is nothing but upright strokes, and of twenty noisy curves over each other
/// most is hidden. Drawing what is in sight alone takes a small part of the time of drawing all, one after the other.
class ColumnStrokes {
 public:
  /// A picture of so many columns and rows, from pixel (0, 0); what lies outside is cut off.
  ColumnStrokes(std::size_t curves, int columns, int rows);

  /// The way from one point to the next, shared out among the columns between. A later curve hides an earlier one.
  void AddLine(std::size_t curve, double from_x, double from_y, double to_x, double to_y);

  /// Strokes that do not overlap, column by column, and cover the same pixels as all that were added.
  std::vector<Stroke> InSight() const;

 private:
  /// From the lowest to the highest pixel that a curve has in a column; empty where bottom is not above top.
  struct Reach {
    int top = 0;
    int bottom = 0;
  };

  void Widen(Reach& reach, double from, double to) const;

  std::size_t curves_;
  int columns_;
  int rows_;
  /// Column by column, curve by curve.
  std::vector<Reach> reaches_;
};

}  // namespace talven
