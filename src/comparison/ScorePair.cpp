#include "comparison/ScorePair.h"

#include <algorithm>
#include <cmath>
#include <numeric>
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
constexpr double kAreaPerCount = 0.1F;

/// For each peak of a list the reference peak that it goes with, 0 for none.
using PartnerList = Array1<std::int32_t, kPeakCapacity>;

std::int32_t CountUnmatched(PartnerList& partners, std::int32_t count) {
  return static_cast<std::int32_t>(std::ranges::count(partners.Range(1, count), 0));
}

void CountPair(const ComparedPair& pair, std::int32_t i, std::int32_t j, PairScore& score) {
  score.RMATCH += 1.0F;
  if (pair.Sample.TwoTheta[j] < pair.TwoThetaLimit) ++score.LowMatchCount;
  if (i <= kStrongest && j <= kStrongest) score.T4RS += 1.0F;
}

/// Numbers of the peaks of a list, by rising position: what is near one angle lies together.
std::span<const std::int32_t> OrderByPosition(const PeakList& list, PartnerList& numbers) {
  const auto order = numbers.Range(1, list.count);
  std::iota(order.begin(), order.end(), 1);
  std::ranges::sort(order, {}, [&list](std::int32_t j) { return list.TwoTheta[j]; });
  return order;
}

/// Counts every pair of peaks within AngTol: a peak may belong to several.
void MatchPeaks(const ComparedPair& pair, double AngTol, PairScore& score) {
  PartnerList reference_partners;
  PartnerList sample_partners;
  PartnerList numbers;
  const auto order = OrderByPosition(pair.Sample, numbers);
  const auto sample_position = [&pair](std::int32_t j) -> double { return pair.Sample.TwoTheta[j]; };
  for (std::int32_t i = 1; i <= pair.Reference.count; ++i) {
    const double position = pair.Reference.TwoTheta[i];
    auto near = std::ranges::partition_point(
        order, [&](double sample) { return position - sample >= AngTol; }, sample_position);
    for (; near != order.end() && sample_position(*near) - position < AngTol; ++near) {
      const std::int32_t j = *near;
      reference_partners[i] = i;
      sample_partners[j] = i;
      CountPair(pair, i, j, score);
    }
    if (reference_partners[i] != 0) continue;
    score.RNM += 1.0F;
    if (i <= kStrongest) score.RNM4 += 1.0F;
  }
  score.NotMatchedR = CountUnmatched(reference_partners, pair.Reference.count);
  score.NotMatchedS = CountUnmatched(sample_partners, pair.Sample.count);
}

/// Relates the number of pairs to the number of peaks; a difference in size counts the same in either direction.
void RelateToPeakCounts(const ComparedPair& pair, PairScore& score) {
  float ratio = Store(1.0 / pair.Sample.count * pair.Reference.count);
  if (ratio < 1.0F) ratio = Store(1.0 / ratio);
  score.RMATCH = Store(1.0 / pair.Reference.count * score.RMATCH * (1.0 / ratio));
  score.InitialRMATCH = score.RMATCH;
}

void PenaliseMissingPeaks(const ComparedPair& pair, const ComparisonSettings& settings, PairScore& score) {
  score.has_few_strong = settings.T4M > score.T4RS;
  if (score.has_few_strong) score.RMATCH = Store(kFewStrongFactor * score.RMATCH);
  score.UnmatchedFraction = Store(1.0 / pair.Reference.count * score.RNM);
  score.has_many_unmatched = settings.NMF < score.UnmatchedFraction;
  if (score.has_many_unmatched) score.RMATCH = Store(kUnmatchedFactor * score.RMATCH);
}

/// Rewards or rejects by the peaks of large d-spacing. On purpose: a sample that has none is rejected even where the
/// reference has none either.
void JudgeLargeD(const ComparedPair& pair, PairScore& score) {
  if (pair.SampleLowCount > pair.RefLowCount || pair.SampleLowCount == 0) {
    score.RMATCH = Store(kLargeDRejected * score.RMATCH);
  } else if (score.LowMatchCount == pair.RefLowCount) {
    score.RMATCH = Store(kLargeDAgreed * score.RMATCH);
  }
}

/// Rejects a sample whose strongest peak lies above the limit while the reference's does not. On purpose: it comes
/// after the cap.
void JudgeMostIntense(const ComparedPair& pair, PairScore& score) {
  if (pair.Reference.TwoTheta[1] <= pair.TwoThetaLimit && pair.TwoThetaLimit < pair.Sample.TwoTheta[1])
    score.RMATCH = Store(kMostIntFactor * score.RMATCH);
}

void ScoreAreas(const ComparedPair& pair, float SAF, PairScore& score) {
  double area = 0.0;
  for (std::int32_t j = 1; j <= pair.Sample.count; ++j)
    area = std::abs(area + kAreaPerCount * pair.Sample.Intensity[j]);
  score.SAREA = Store(area);
  score.Fract = Store(std::abs((static_cast<double>(pair.RefArea) - score.SAREA) * (1.0 / pair.RefArea)));
  score.M2 = score.RMATCH;
  if (score.Fract > SAF) score.M2 = Store(std::abs(kAreaFactor * score.RMATCH * (1.0 / score.SAREA)));
}

/// How far two bands lie apart, degrees: the distances of the centres and of the highest peaks together.
double BandDistance(const PeakBand& a, const PeakBand& b) {
  return std::abs(static_cast<double>(a.Start) - b.Start) +
         std::abs(static_cast<double>(a.HighestPosition) - b.HighestPosition);
}

/// The share of bands that match. Each sample band goes to the first reference band that is near enough, which may take
/// several, so that the score can pass 1.
float ScoreBands(const ComparedPair& pair, double Berr) {
  Array1<bool, kPeakCapacity / 2> is_taken;
  std::int32_t matches = 0;
  for (std::int32_t i = 1; i <= pair.ReferenceBands.count; ++i)
    for (std::int32_t k = 1; k <= pair.SampleBands.count; ++k)
      if (!is_taken[k] && BandDistance(pair.ReferenceBands.rows[i], pair.SampleBands.rows[k]) < Berr) {
        is_taken[k] = true;
        ++matches;
      }
  return Store(1.0 / pair.ReferenceBands.count * matches);
}

}  // namespace

PairScore ScorePair(const ComparedPair& pair, const ComparisonSettings& settings) {
  PairScore score;
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
