// A frame of the plot: 100,000 points with 20 overlays, drawn whole and zoomed, at one and two pixels a point.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <random>

#include "ui/plot/PlotCanvas.h"

namespace talven {
namespace {

constexpr int kPoints = 100'000;
constexpr unsigned kOverlays = 20;

/// Noise and a peak every half degree: a curve that has something to draw in every column.
Pattern Made(unsigned seed) {
  Pattern pattern;
  std::mt19937 random(seed);
  for (int i = 0; i < kPoints; ++i) {
    const double angle = 5.0 + i * 0.001;
    const double distance = (angle - 0.5 * std::round(2.0 * angle)) / 0.03;
    pattern.two_theta.push_back(angle);
    pattern.counts.push_back(100.0 + static_cast<double>(random() % 40) + 1000.0 * std::exp(-distance * distance));
  }
  pattern.wavelength = 1.5406;
  return pattern;
}

struct Fixture {
  explicit Fixture(const PlotSettings& settings, unsigned overlays = kOverlays) {
    model.Show({"pattern", Made(1)});
    for (unsigned i = 0; i < overlays; ++i) model.AddOverlay({"overlay", Made(i + 2)});
    model.Set(settings);
    canvas.resize(1600, 900);
    canvas.show();
    canvas.Update(false);
  }

  PlotModel model;
  PeakPicker picker;
  PlotCanvas canvas{model, picker};
};

/// Draws the curves and the window. Each frame has another view, so that nothing can be kept.
void BM_Frame(benchmark::State& state, PlotSettings settings, unsigned overlays = kOverlays) {
  Fixture fixture(settings, overlays);
  const PlotRange all = fixture.model.FullAlong();
  const double share = 1.0 / static_cast<double>(state.range(0));
  const double width = (all.upper - all.lower) * share;
  const PlotRange up = fixture.model.FullUp(all);
  int frame = 0;
  for (auto _ : state) {
    const double shift = (all.upper - all.lower - width) * 0.01 * (frame++ % 100);
    fixture.canvas.xAxis->setRange(all.lower + shift, all.lower + shift + width);
    fixture.canvas.yAxis->setRange(up.lower, up.upper);
    fixture.canvas.replot(QCustomPlot::rpImmediateRefresh);
  }
}

/// What a moving cursor costs, until the window is painted.
void BM_Cursor(benchmark::State& state) {
  Fixture fixture({});
  int frame = 0;
  for (auto _ : state) {
    fixture.canvas.SetCursor(20.0 + 0.5 * (frame++ % 100));
    QApplication::processEvents();
  }
}
BENCHMARK(BM_Cursor)->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(BM_Frame, measured, PlotSettings{})
    ->RangeMultiplier(10)
    ->Range(1, 1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Frame, few_and_smooth, PlotSettings{}, 3)
    ->RangeMultiplier(10)
    ->Range(1, 1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Frame, stacked_sqrt_d,
                  PlotSettings{AlongUnit::kD, UpScale::kSquareRoot, Arrangement::kStacked, false})
    ->RangeMultiplier(10)
    ->Range(1, 1000)
    ->Unit(benchmark::kMillisecond);

/// What a move of a slider costs: threshold alone, and the width, with all that is found anew.
void BM_Threshold(benchmark::State& state) {
  PeakPicker picker;
  picker.SetPattern(Made(1));
  PeakChoices choices;
  for (auto _ : state) {
    choices.threshold = choices.threshold > 9.0 ? 3.0 : choices.threshold + 0.1;
    picker.Choose(choices);
  }
}
BENCHMARK(BM_Threshold)->Unit(benchmark::kMillisecond);

void BM_Width(benchmark::State& state) {
  PeakPicker picker;
  picker.SetPattern(Made(1));
  PeakChoices choices;
  choices.fwhm = 0.05;
  for (auto _ : state) {
    choices.fwhm = *choices.fwhm > 0.2 ? 0.05 : *choices.fwhm + 0.002;
    picker.Choose(choices);
  }
}
BENCHMARK(BM_Width)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talven

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
