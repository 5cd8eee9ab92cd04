// Strokes in sight against curves painted one over the other.
#include "ui/plot/model/ColumnStrokes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace talven::test {
namespace {

constexpr int kColumns = 40;
constexpr int kRows = 30;

/// The number of the curve that is seen in each pixel, from 1; 0 on the ground.
using Picture = std::vector<std::size_t>;

std::size_t Pixel(int column, int row) { return static_cast<std::size_t>(row * kColumns + column); }

/// A line that goes down or up within a column, or straight through one, as the strokes share it out.
void PaintLine(Picture& picture, std::size_t curve, double x, double from, double to) {
  if (x < 0.0 || x >= kColumns) return;
  const auto [low, high] = std::minmax(from, to);
  for (int row = 0; row < kRows; ++row) {
    if (row >= std::floor(low) && row <= std::floor(high)) picture[Pixel(static_cast<int>(x), row)] = curve + 1;
  }
}

TEST(ColumnStrokes, CoverWhatIsPaintedOneOverTheOther) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> height(-0.5 * kRows, 1.5 * kRows);
  for (std::size_t curves = 1; curves <= 12; ++curves) {
    ColumnStrokes strokes(curves, kColumns, kRows);
    Picture painted(kColumns * kRows, 0);
    for (std::size_t curve = 0; curve < curves; ++curve) {
      for (double x = -2.5; x < kColumns + 2; x += 1.0) {
        const double from = height(random);
        const double to = curve % 2 == 0 ? from + 3.0 : height(random);
        curve % 3 == 0 ? strokes.AddLine(curve, x, from, x, to) : strokes.AddLine(curve, x, to, x, from);
        PaintLine(painted, curve, x, from, to);
      }
    }
    Picture seen(kColumns * kRows, 0);
    for (const Stroke& stroke : strokes.InSight()) {
      for (int row = stroke.top; row < stroke.bottom; ++row) {
        EXPECT_EQ(seen[Pixel(stroke.column, row)], 0U) << "nothing is drawn twice";
        seen[Pixel(stroke.column, row)] = stroke.curve + 1;
      }
    }
    EXPECT_EQ(seen, painted) << curves << " curves";
  }
}

TEST(ColumnStrokes, ALineIsSharedOutAmongItsColumns) {
  ColumnStrokes strokes(1, kColumns, kRows);
  strokes.AddLine(0, 12.5, 24.0, 9.5, 4.0);
  std::string text;
  for (const Stroke& stroke : strokes.InSight()) {
    text +=
        std::to_string(stroke.column) + ":" + std::to_string(stroke.top) + "-" + std::to_string(stroke.bottom) + " ";
  }
  EXPECT_EQ(text, "9:4-10 10:9-15 11:14-20 12:19-25 ");
  ColumnStrokes far(1, kColumns, kRows);
  far.AddLine(0, -1e12, -1e12, -1e11, 1e300);
  EXPECT_TRUE(far.InSight().empty());
}

}  // namespace
}  // namespace talven::test
