// What a plot shows, without a screen: a pattern, others laid over it, their difference, and what the cursor reads.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "crystal/Pattern.h"
#include "ui/plot/model/AxisScale.h"
#include "ui/plot/model/Ranking.h"

namespace talven {

/// Counts as they are; all curves with 100 at their highest point; the same, each above the one before.
enum class Arrangement { kAsMeasured, kNormalised, kStacked };

struct PlotSeries {
  std::string title;
  Pattern pattern;
  /// What tells it from others of the same title: where it was read, and when.
  std::string origin = {};
};

/// Points to draw, in places on the axes, by rising x.
struct Curve {
  std::vector<double> x;
  std::vector<double> y;
};

struct PlotRange {
  double lower = 0.0;
  double upper = 1.0;
};

/// One place with all reflections that fall on it.
struct ReflectionTick {
  double two_theta = 0.0;
  /// "1 0 0", or "1 0 0 +2" where there are more.
  std::string label;
};

/// What stands at the cursor.
struct PlotReading {
  /// Degrees and Angstrom, of the cursor itself.
  double two_theta = 0.0;
  double d = 0.0;
  /// The pattern's point nearest to it.
  std::size_t point = 0;
  double intensity = 0.0;
  /// The reflection nearest to it, where the pattern has any.
  std::optional<ReflectionTick> reflection;
};

/// How the axes stand and what is laid over what.
struct PlotSettings {
  AlongUnit along = AlongUnit::kTwoTheta;
  UpScale up = UpScale::kLinear;
  Arrangement arrangement = Arrangement::kAsMeasured;
  /// The pattern minus the first overlay, drawn below.
  bool shows_difference = false;

  bool operator==(const PlotSettings&) const = default;
};

class PlotModel {
 public:
  /// Patterns shown before this many are kept.
  static constexpr std::size_t kKeptEarlier = 20;
  /// Angstrom, for patterns that tell none: copper.
  static constexpr double kAssumedWavelength = 1.54056;

  /// Makes this the pattern of the plot; the one before joins the earlier ones. Overlays stay. A pattern needs no
  /// points; angles rise.
  void Show(PlotSeries series);
  /// The pattern with the same title among the earlier ones stays there.
  void AddOverlay(PlotSeries series);
  void RemoveOverlays();

  bool IsEmpty() const { return series_.empty(); }
  /// The pattern first, then the overlays.
  const std::vector<PlotSeries>& Series() const { return series_; }
  /// The title or, where another series has the same one, the origin.
  std::string CurveName(std::size_t series) const;
  /// The latest first.
  const std::vector<PlotSeries>& Earlier() const { return earlier_; }

  const PlotSettings& Settings() const { return settings_; }
  void Set(const PlotSettings& settings);

  /// Angstrom: the series' own, else that of the first, else the given one, else the assumed one.
  double Wavelength(std::size_t series = 0) const;
  bool IsWavelengthAssumed() const;
  /// For patterns that tell none.
  void GiveWavelength(double wavelength);
  std::optional<double> GivenWavelength() const { return given_wavelength_; }

  const UpAxis& Up() const { return up_; }
  /// Place along of a 2theta of a series, and back for the first series.
  double Along(double two_theta, std::size_t series = 0) const;
  double TwoThetaOf(double along) const;
  /// Place up of an intensity of a series.
  double PlaceOf(double intensity, std::size_t series = 0) const;

  /// All there is, with a little air above; up, of what stands in a range along.
  PlotRange FullAlong() const;
  PlotRange FullUp(const PlotRange& along) const;

  /// The most points that all series together can have when drawn over a number of pixel columns.
  std::size_t DrawnPoints(const PlotRange& along, std::size_t columns) const;
  /// What a number of pixel columns can show of a series.
  Curve CurveOf(std::size_t series, const PlotRange& along, std::size_t columns) const;
  /// Values at the angles of the first series, such as a background, drawn like that.
  Curve CurveOf(const std::vector<double>& values, const PlotRange& along, std::size_t columns) const;

  /// True where the settings want a difference, there are two patterns and the scale can show signs.
  bool HasDifference() const { return !difference_.counts.empty(); }
  Curve DifferenceCurve(const PlotRange& along, std::size_t columns) const;

  /// Calculated lines below the pattern, in place of its reflections, until another pattern is shown.
  void ShowSticks(StickSet sticks);
  const StickSet& Sticks() const { return sticks_; }

  /// The reflections of the sticks or else of the pattern, by rising 2theta.
  const std::vector<ReflectionTick>& Ticks() const { return ticks_; }
  /// Nothing without a pattern.
  std::optional<PlotReading> ReadAt(double two_theta) const;

  std::string AlongName() const { return AlongTitle(settings_.along); }
  std::string UpName() const;
  /// The plot in words, for those who do not see it.
  std::string Description() const;

 private:
  struct Placing {
    double wavelength = kAssumedWavelength;
    double factor = 1.0;
    double shift = 0.0;
  };

  void Arrange();
  void ComputeDifference();
  Curve Draw(const std::vector<double>& two_theta, const std::vector<double>& values, const Placing& placing,
             const PlotRange& along, std::size_t columns) const;

  PlotSettings settings_;
  std::optional<double> given_wavelength_;
  std::vector<PlotSeries> series_;
  std::vector<PlotSeries> earlier_;
  std::vector<Placing> placings_;
  UpAxis up_;
  Pattern difference_;
  Placing difference_placing_;
  std::vector<ReflectionTick> ticks_;
  StickSet sticks_;
};

}  // namespace talven
