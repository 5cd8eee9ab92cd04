#include "ui/TextPane.h"

namespace talven {
namespace {

constexpr float kPageHeight = 300.0F;
constexpr float kFirstLine = 10.0F;
constexpr float kLineStep = 7.0F;
constexpr float kLeftEdge = 5.0F;

}  // namespace

void TextPane::WriteTextLineFrom(const Text80& text, int keep) {
  if (PanePosition == 0.0F) PanePosition = kFirstLine;
  if (keep == 0 || PanePosition > kPageHeight) {
    PanePosition = kFirstLine;
    toolkit_.WGrAreaClear();
  }
  toolkit_.WGrTextAt(kLeftEdge, kPageHeight - PanePosition, text.View());
  PanePosition += kLineStep;
}

}  // namespace talven
