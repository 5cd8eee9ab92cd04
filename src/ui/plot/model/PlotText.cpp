// The words of a plot: axis titles, and the plot told to those who do not see it.
#include <algorithm>

#include "ui/plot/model/NumberText.h"
#include "ui/plot/model/PlotModel.h"

namespace talven {
namespace {

std::string Named(std::string_view count_of, std::size_t count) {
  return std::to_string(count) + " " + std::string(count_of) + (count == 1 ? "" : "s");
}

}  // namespace

std::string PlotModel::CurveName(std::size_t series) const {
  const PlotSeries& named = series_[series];
  const auto count = std::ranges::count(series_, named.title, &PlotSeries::title);
  return count > 1 && !named.origin.empty() ? named.origin : named.title;
}

std::string PlotModel::UpName() const {
  std::string name = "Intensity";
  name += settings_.arrangement == Arrangement::kAsMeasured ? " (counts)" : " (% of the highest point)";
  if (settings_.arrangement == Arrangement::kStacked && series_.size() > 1) name += ", stacked";
  if (settings_.up == UpScale::kSquareRoot) name += ", square root scale";
  if (settings_.up == UpScale::kLogarithm) name += ", logarithmic scale";
  return name;
}

std::string PlotModel::Description() const {
  if (series_.empty()) return "No pattern is shown.";
  const PlotRange along = FullAlong();
  std::string text = series_.front().title + ". Along: " + AlongName() + ", " + NumberText(along.lower, 6) + " to " +
                     NumberText(along.upper, 6) + ". Up: " + UpName() + ". " +
                     Named("point", series_.front().pattern.PointCount()) + ", " + Named("reflection", ticks_.size()) +
                     ".";
  if (series_.size() > 1) {
    text += " Overlays:";
    for (std::size_t i = 1; i < series_.size(); ++i) text += (i == 1 ? " " : ", ") + CurveName(i);
    text += ".";
  }
  if (!sticks_.sticks.empty()) text += " Calculated lines below: " + sticks_.title + ".";
  if (HasDifference()) text += " The difference to the first overlay stands below.";
  if (IsWavelengthAssumed()) text += " The file tells no wavelength; 1.54056 Å is assumed.";
  return text;
}

}  // namespace talven
