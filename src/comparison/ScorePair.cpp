#include "comparison/ScorePair.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr std::int32_t kStrongest = 4;
constexpr double kFewStrongFactor = 0.2F;
constexpr double kUnmatchedFactor = 0.1F;
constexpr double kLargeDRejected = 0.01F;
constexpr double kLargeDAgreed = 3.0;
constexpr double kMostIntFactor = 0.01F;
constexpr double kAreaFactor = 0.02F;

using StrongestPositions = std::array<float, kStrongest>;

/// The matching pairs of two lists of positions in rising order.
struct Matches {
  std::int32_t pairs = 0;
  /// Pairs whose second position lies below a limit.
  std::int32_t low_pairs = 0;
  /// Positions without a partner.
  std::int32_t unmatched_first = 0;
  std::int32_t unmatched_second = 0;
};

/// Counts every pair within AngTol: a peak may belong to several.
Matches FindMatches(std::span<const float> first, std::span<const float> second, double AngTol, float limit = 0.0F) {
  Matches matches;
  auto near = second.begin();
  auto seen = near;  // the end of what has had a partner
  std::int32_t matched_second = 0;
  for (const double position : first) {
    while (near != second.end() && position - *near >= AngTol) ++near;
    auto partner = near;
    for (; partner != second.end() && *partner - position < AngTol; ++partner)
      if (*partner < limit) ++matches.low_pairs;
    matches.pairs += static_cast<std::int32_t>(partner - near);
    if (partner == near) ++matches.unmatched_first;
    matched_second += static_cast<std::int32_t>(partner - std::max(near, seen));
    seen = partner;
  }
  matches.unmatched_second = static_cast<std::int32_t>(second.size()) - matched_second;
  return matches;
}

/// Two patterns and the angle below which a peak has a large d-spacing.
struct Pair {
  const PreparedPeaks& Reference;
  const PreparedPeaks& Sample;
  float TwoThetaLimit;
};

/// The positions of the strongest peaks of a list, rising.
std::span<const float> CollectStrongest(const PeakList& list, StrongestPositions& positions) {
  const auto strongest = list.TwoTheta.Range(1, std::min(list.count, kStrongest));
  const auto taken = std::span(positions).first(strongest.size());
  std::ranges::copy(strongest, taken.begin());
  std::ranges::sort(taken);
  return taken;
}

void MatchPeaks(const Pair& pair, double AngTol, PairScore& score) {
  const auto reference = pair.Reference.list.RisingTwoTheta.Range(1, pair.Reference.list.count);
  const auto sample = pair.Sample.list.RisingTwoTheta.Range(1, pair.Sample.list.count);
  const Matches matches = FindMatches(reference, sample, AngTol, pair.TwoThetaLimit);
  score.RMATCH = Store(matches.pairs);
  score.LowMatchCount = matches.low_pairs;
  score.RNM = Store(matches.unmatched_first);
  score.NotMatchedR = matches.unmatched_first;
  score.NotMatchedS = matches.unmatched_second;

  StrongestPositions reference_positions;
  StrongestPositions sample_positions;
  const auto reference_strongest = CollectStrongest(pair.Reference.list, reference_positions);
  const auto sample_strongest = CollectStrongest(pair.Sample.list, sample_positions);
  score.T4RS = Store(FindMatches(reference_strongest, sample_strongest, AngTol).pairs);
  score.RNM4 = Store(FindMatches(reference_strongest, sample, AngTol).unmatched_first);
}

/// Relates the number of pairs to the number of peaks; a difference in size counts the same in either direction.
void RelateToPeakCounts(const Pair& pair, PairScore& score) {
  float ratio = Store(1.0 / pair.Sample.list.count * pair.Reference.list.count);
  if (ratio < 1.0F) ratio = Store(1.0 / ratio);
  score.RMATCH = Store(1.0 / pair.Reference.list.count * score.RMATCH * (1.0 / ratio));
  score.InitialRMATCH = score.RMATCH;
}

void PenaliseMissingPeaks(const Pair& pair, const ComparisonSettings& settings, PairScore& score) {
  score.has_few_strong = settings.T4M > score.T4RS;
  if (score.has_few_strong) score.RMATCH = Store(kFewStrongFactor * score.RMATCH);
  score.UnmatchedFraction = Store(1.0 / pair.Reference.list.count * score.RNM);
  score.has_many_unmatched = settings.NMF < score.UnmatchedFraction;
  if (score.has_many_unmatched) score.RMATCH = Store(kUnmatchedFactor * score.RMATCH);
}

/// Rewards or rejects by the peaks of large d-spacing. On purpose: a sample that has none is rejected even where the
/// reference has none either.
void JudgeLargeD(const Pair& pair, PairScore& score) {
  if (pair.Sample.low_count > pair.Reference.low_count || pair.Sample.low_count == 0) {
    score.RMATCH = Store(kLargeDRejected * score.RMATCH);
  } else if (score.LowMatchCount == pair.Reference.low_count) {
    score.RMATCH = Store(kLargeDAgreed * score.RMATCH);
  }
}

/// Rejects a sample whose strongest peak lies above the limit while the reference's does not. On purpose: it comes
/// after the cap.
void JudgeMostIntense(const Pair& pair, PairScore& score) {
  if (pair.Reference.list.TwoTheta[1] <= pair.TwoThetaLimit && pair.TwoThetaLimit < pair.Sample.list.TwoTheta[1])
    score.RMATCH = Store(kMostIntFactor * score.RMATCH);
}

void ScoreAreas(const Pair& pair, float SAF, PairScore& score) {
  double area = 0.0;
  for (std::int32_t j = 1; j <= pair.Sample.list.count; ++j)
    area = std::abs(area + kAreaPerCount * pair.Sample.list.Intensity[j]);
  score.SAREA = Store(area);
  score.Fract = Store(std::abs((static_cast<double>(pair.Reference.area) - score.SAREA) * (1.0 / pair.Reference.area)));
  score.M2 = score.RMATCH;
  if (score.Fract > SAF) score.M2 = Store(std::abs(kAreaFactor * score.RMATCH * (1.0 / score.SAREA)));
}

/// How far two bands lie apart, degrees: the distances of the centres and of the highest peaks together.
double BandDistance(const BandCentre& a, const BandCentre& b) {
  return std::abs(static_cast<double>(a.Centre) - b.Centre) +
         std::abs(static_cast<double>(a.HighestPosition) - b.HighestPosition);
}

/// The share of bands that match. Each sample band goes to the first reference band that is near enough, which may take
/// several, so that the score can pass 1.
float ScoreBands(const Pair& pair, double Berr) {
  if (pair.Reference.bands.empty()) return 0.0F;
  std::array<bool, kPeakCapacity> is_taken{};
  std::int32_t matches = 0;
  for (const BandCentre& band : pair.Reference.bands)
    for (std::size_t k = 0; k < pair.Sample.bands.size(); ++k)
      if (!is_taken[k] && BandDistance(band, pair.Sample.bands[k]) < Berr) {
        is_taken[k] = true;
        ++matches;
      }
  return Store(1.0 / static_cast<double>(pair.Reference.bands.size()) * matches);
}

}  // namespace

PairScore ScorePair(const PreparedPeaks& reference, const PreparedPeaks& sample, float two_theta_limit,
                    const ComparisonSettings& settings) {
  const Pair pair{reference, sample, two_theta_limit};
  PairScore score{.reference_count = reference.list.count,
                  .sample_count = sample.list.count,
                  .sample_band_count = static_cast<std::int32_t>(sample.bands.size())};
  MatchPeaks(pair, settings.AngTol, score);
  RelateToPeakCounts(pair, score);
  PenaliseMissingPeaks(pair, settings, score);
  if (settings.Apply) JudgeLargeD(pair, score);
  if (score.RMATCH > 1.0F) score.RMATCH = 1.0F;
  if (settings.MostInt) JudgeMostIntense(pair, score);
  ScoreAreas(pair, settings.SAF, score);
  score.BMATCH = ScoreBands(pair, settings.Berr);
  return score;
}

}  // namespace talven
