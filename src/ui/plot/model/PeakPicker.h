// The peaks of the plotted pattern: those that the library finds, and what the user changed about them.
#pragma once

#include <optional>
#include <vector>

#include "peaks/PickPeaks.h"

namespace talven {

/// All that the user decides, so that an earlier one of these undoes everything since.
struct PeakChoices {
  double threshold = PeakOptions{}.threshold;
  /// Degrees; measured where it is not given.
  std::optional<double> fwhm;
  bool keep_alpha2 = false;
  /// Set by hand.
  std::vector<Peak> added;
  /// 2theta of found peaks that were taken out by hand.
  std::vector<double> removed;
};

enum class PeakOrigin { kFound, kByHand, kAlpha2 };

struct MarkedPeak {
  Peak peak;
  PeakOrigin origin = PeakOrigin::kFound;
};

class PeakPicker {
 public:
  /// Starts anew with a pattern: what was chosen for the one before is dropped, but for threshold and K alpha 2. The
  /// wavelength, Angstrom, is for a pattern that tells none.
  void SetPattern(const Pattern& pattern, std::optional<double> wavelength = {});
  void Choose(const PeakChoices& choices);
  const PeakChoices& Choices() const { return choices_; }

  /// By rising angle: all that are listed, and the K alpha 2 companions that are not.
  const std::vector<MarkedPeak>& Marks() const { return marks_; }
  /// What a peak list takes: at most 100, the strongest, by rising angle.
  std::vector<Peak> Listed() const;
  /// How many more there are.
  std::size_t LeftOutCount() const { return left_out_count_; }
  const std::vector<double>& Background() const { return search_.background; }
  /// The width that was worked with, degrees; and the one that was measured, to start a slider from.
  double Fwhm() const { return search_.fwhm; }
  std::optional<double> Wavelength() const { return search_.wavelength; }

  /// The choices with one more peak: the highest point within half a width of an angle, above the background.
  PeakChoices WithPeakAt(double two_theta) const;
  /// Without one of the marks. A companion is no peak of the list and stays.
  PeakChoices Without(const MarkedPeak& mark) const;
  /// With one of the marks at exactly this angle.
  PeakChoices WithMoved(const MarkedPeak& mark, double two_theta) const;
  /// The mark nearest to an angle, no further than this many degrees from it; null where there is none.
  const MarkedPeak* NearestMark(double two_theta, double within) const;

 private:
  Peak PeakOn(std::size_t point, double two_theta) const;
  bool IsRemoved(const Peak& peak) const;
  void Pick();

  PeakOptions Options() const;

  Pattern pattern_;
  std::optional<double> wavelength_;
  PeakChoices choices_;
  PeakSearch search_;
  std::vector<MarkedPeak> marks_;
  std::size_t left_out_count_ = 0;
};

}  // namespace talven
