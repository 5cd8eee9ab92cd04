// From a peak list file to the scores, with lists that can be followed by hand. Each case shows one rule.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include "comparison/ComparePeakLists.h"
#include "comparison/PeakListFile.h"

namespace talven::test {
namespace {

/// What a step makes of a list, or a score of two, as text.
struct Case {
  const char* about;
  std::string peaks, result;
  std::string sample = {};
  ComparisonSettings settings = {};
};

/// Puts "2theta intensity 2theta intensity ..." into a list; what stands in the slots above stays.
void Fill(PeakList& list, const std::string& peaks) {
  std::istringstream stream(peaks);
  list.count = 0;
  for (float position = 0.0F, intensity = 0.0F; stream >> position >> intensity;) {
    list.TwoTheta[++list.count] = position;
    list.Intensity[list.count] = intensity;
  }
}

std::string Describe(const PeakList& list) {
  std::ostringstream text;
  for (std::int32_t i = 1; i <= list.count; ++i) text << list.TwoTheta[i] << " " << list.Intensity[i] << " ";
  return text.str();
}

TEST(ReadPeakList, TellsRowsFromOtherLines) {
  for (const Case& c :
       {Case{"blanks", "  12.5   1000", "12.5 1000 "}, Case{"a heading", "  Peak 12.5 1000", ""},
        Case{"a word in column 21", "12.5 1000           Strong", "12.5 1000 "},
        Case{"in column 20", "12.5 1000          Strong", ""}, Case{"marks", "\t12.5,1000/7.1\r", "12.5 1000 "},
        Case{"a sign after the digits", "12.5:1000", ""}, Case{"4 characters", "1 25", ""},
        Case{"5 characters", "1 250", "1 250 "}, Case{"not ASCII", "12.5 1000 \xC5", "12.5 1000 "},
        Case{"blank", "      ", ""}, Case{"beyond column 80", "2.5" + std::string(75, ' ') + "1234", "2.5 12 "}}) {
    TextInput lst("a.lst", "1 22222\n  Marked\n1 33333\n   Marked\n" + c.peaks + "\n");
    PeakList list;
    ReadPeakList(lst, list);
    EXPECT_EQ(Describe(list), c.result) << c.about;
  }
}

/// "first-last highest@position sum/peaks, " for each band, then the count that the scan saw last.
std::string Scan(const PeakList& list, float gap) {
  std::ostringstream text;
  const PeakBands found = BuildBands(list, gap, 100.0F);
  for (const PeakBand& row : found.bands)
    text << row.Start << "-" << row.End << " " << row.HighestIntensity << "@" << row.HighestPosition << " "
         << row.IntensitySum << "/" << row.PeakCount << ", ";
  text << found.last_peak_count;
  return text.str();
}

TEST(BuildBands, FollowsTheRulesOfTheScan) {
  PeakList list;
  for (const Case& c : {
           Case{"one peak is a band", "10 200", "10-10 200@10 200/0, 1"},
           Case{"the second of two is added twice", "10 200 12 300", "10-12 300@12 800/3, 3"},
           Case{"one peak sees the slot after it", "10 200", "10-12 300@12 800/3, 3"},
           Case{"a gap of BSep parts", "10 200 13 300", "10-10 200@10 200/0, 1"},
           Case{"three, the first too weak", "10 100 11 200 12 300", "1"},
           Case{"the last of three is left out", "10 200 20 300 21 300", "10-10 200@10 200/0, 1"},
           Case{"a single peak in the middle is none", "10 200 20 200 30 50 31 200 32 200", "1"},
           Case{"one closed, one open at the end", "10 200 12 250 14 220 17 300 19 300 20 300",
                "10-14 250@12 670/3, 17-19 300@17 900/3, 3"},
           Case{"ties, a weak peak parts", "10 300 11 300 12 100 13 100 14 100", "10-11 300@10 600/2, 1"},
           Case{"a step back joins", "30 200 10 300 11 50 12 50", "30-10 300@10 500/2, 2"},
       }) {
    Fill(list, c.peaks);
    EXPECT_EQ(Scan(list, 3.0F), c.result) << c.about;
  }
  std::string full;
  for (int i = 1; i <= 100; ++i) full += std::to_string(i) + " 200 ";
  Fill(list, full);
  EXPECT_EQ(Scan(list, 3.0F), "1-99 200@1 20000/100, 100") << "without the last, with the last but one twice";
}

/// Peaks on a grid of tenths of a degree, of whole intensities below `top`.
PeakList RandomPeaks(std::mt19937& random, int top) {
  PeakList list;
  list.count = std::uniform_int_distribution(1, 100)(random);
  for (float& position : list.TwoTheta.Range(1, list.count)) position = static_cast<float>(random() % 300) * 0.1F;
  for (float& peak : list.Intensity.Range(1, list.count)) peak = static_cast<float>(static_cast<int>(random()) % top);
  return list;
}

TEST(SortPeaksByIntensity, SortsAsPlainExchangesDo) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    PeakList list = RandomPeaks(random, round % 2 == 0 ? 50 : 1'000'000);
    const auto n = list.count;
    Array1<std::pair<float, float>, 100> plain;
    for (int i = 1; i <= n; ++i) plain[i] = {list.Intensity[i], list.TwoTheta[i]};
    for (int gap = n / 2; gap > 0; gap /= 2)
      for (int i = gap + 1; i <= n; ++i)
        for (int j = i; j > gap && plain[j - gap].first > plain[j].first; j -= gap) std::swap(plain[j], plain[j - gap]);
    SortPeaksByIntensity(list);
    for (int i = 1; i <= n; ++i) ASSERT_EQ(std::pair(list.Intensity[i], list.TwoTheta[i]), plain[n + 1 - i]) << n;
  }
}

TEST(ScorePair, CountsPairsAsAPlainLoopDoes) {
  std::mt19937 random(2);
  for (int round = 0; round < 300; ++round) {
    PreparedPeaks reference{RandomPeaks(random, 50), {}, 1.0F, 0}, sample{RandomPeaks(random, 50), {}, 1.0F, 0};
    const PeakList &first = reference.list, &second = sample.list;
    for (PreparedPeaks* peaks : {&reference, &sample}) SortPeaksByIntensity(peaks->list);
    PairScore plain;
    Array1<bool, 100> matched;
    for (int i = 1; i <= first.count; ++i) {
      int partners = 0;
      for (int j = 1; j <= second.count; ++j) {
        if (!(std::abs(double{first.TwoTheta[i]} - second.TwoTheta[j]) < 0.3F)) continue;
        matched[j] = ++partners > 0;
        if (second.TwoTheta[j] < 20.0F) ++plain.LowMatchCount;
        if (i <= 4 && j <= 4) ++plain.T4RS;
      }
      if (partners == 0) ++plain.RNM;
      if (partners == 0 && i <= 4) ++plain.RNM4;
    }
    const auto score = ScorePair(reference, sample, 20.0F, {});
    EXPECT_EQ(std::tie(score.LowMatchCount, score.T4RS, score.RNM, score.RNM4),
              std::tie(plain.LowMatchCount, plain.T4RS, plain.RNM, plain.RNM4));
    EXPECT_EQ(score.NotMatchedS, std::ranges::count(matched.Range(1, second.count), false));
  }
}

/// Scores two lists with a limit of the large d-spacings at 6 degrees.
PairScore Score(const Case& c) {
  const float limit = 6.0F;
  PreparedPeaks reference, sample;
  Fill(reference.list, c.peaks);
  Fill(sample.list, c.sample);
  for (PreparedPeaks* peaks : {&reference, &sample}) PreparePeaks(c.settings, limit, *peaks);
  return ScorePair(reference, sample, limit, c.settings);
}

/// Peaks one degree apart.
std::string Comb(int count, int first = 10) {
  std::string peaks;
  for (int i = 0; i < count; ++i) peaks += std::to_string(first + i) + " 1 ";
  return peaks;
}

TEST(ScorePair, PeakScore) {
  const ComparisonSettings wide{.AngTol = 0.5F, .NMF = 0.9F, .T4M = 1};
  const ComparisonSettings large_d{.NMF = 0.9F, .T4M = 1, .Apply = true};
  const std::string low = "5 1 20 1 30 1 40 1";
  for (const Case& c : {
           Case{"identical", Comb(6), "1 1 4 0 0", Comb(6)},
           Case{"AngTol apart", "10 1 20 1 30.5 1", "0.333333 0.333333 1 2 2", "10.5 1 20.25 1 30 1", wide},
           Case{"crowded peaks pass 1 and are capped", "10 1 10.1 1", "2 1 4 0 0", "10 1 10.1 1"},
           Case{"twice the peaks in the sample", Comb(10), "0.5 0.5 3 0 0", Comb(20, 1), wide},
           Case{"twice the peaks in the reference", Comb(20), "0.25 0.25 4 10 0", Comb(10, 20), wide},
           Case{"four never reach T4M 5", Comb(6), "1 0.2 4 0 0", Comb(6), {.T4M = 5}},
           Case{"unmatched fraction equal to NMF", Comb(4), "0.75 0.75 3 1 1", Comb(4, 11), {.NMF = 0.25F}},
           Case{"above NMF", Comb(4), "0.75 0.075 3 1 1", Comb(4, 11), {.NMF = 0.24F}},
           Case{"no verdict on large d", low, "0.25 0.25 1 3 3", "5 1 25 1 35 1 45 1", wide},
           Case{"all low peaks match", low, "0.25 0.75 1 3 3", "5 1 25 1 35 1 45 1", large_d},
           Case{"a low peak is missing", "4 1 " + low, "0.16 0.16 1 4 3", "5 1 25 1 35 1 45 1", large_d},
           Case{"a low peak too many", low, "0.25 0.0025 1 3 3", "4 1 5 1 35 1 45 1", large_d},
           Case{"no low peak", low, "0.25 0.0025 1 3 3", "20 1 25 1 35 1 45 1", large_d},
           Case{"strongest at the limit and above", "6 2 5.9 1", "2 0.01 4 0 0", "6 1 6.1 2", {.MostInt = true}},
       }) {
    const PairScore score = Score(c);
    std::ostringstream text;
    text << score.InitialRMATCH << " " << score.RMATCH << " " << score.T4RS << " " << score.RNM << " " << score.RNM4;
    EXPECT_EQ(text.str(), c.result) << c.about;
  }
}

TEST(ScorePair, AreaAndBandScore) {
  const std::string two_bands = "9 1 9.4 1 11 1 11.4 1 50 1";
  const std::string one_band = "10 1 10.4 1 50 1";
  const std::string no_band = "10 1 20 200 30 100";
  const ComparisonSettings narrow{.NMF = 0.9F, .T4M = 1, .BSep = 0.5F};
  for (const Case& c : {
           Case{"areas by SAF apart", "10 1 30 1", "0.5 0.25 1", "10 1", {.NMF = 0.5F, .SAF = 0.5F, .T4M = 1}},
           Case{"further apart", "10 1 30 1", "0.5 5.0505e-07 1", "10 1", {.NMF = 0.5F, .SAF = 0.49F, .T4M = 1}},
           Case{"negative sums turn positive", "10 2 30 -4", "2 2.0202e-06 1", "10 2 30 -4"},
           Case{"bands near enough", "10 1 30 1 50 1", "0 0.666667 1", "11.4375 1 30 1 50 1", {.NMF = 0.4F}},
           Case{"bands too far", "10 1 30 1 50 1", "0 0.666667 0", "11.5 1 30 1 50 1", {.NMF = 0.4F}},
           Case{"a band takes two", one_band, "0.666667 8.08081e-08 2", two_bands, narrow},
           Case{"a band is taken once", two_bands, "0.4 8.08081e-08 0.5", one_band, narrow},
           Case{"a tenth is a stored one", "10 2 30 7", "7.67221e-08 1 1", "10 2 30 7"},
           Case{"no band in the sample", one_band, "0.498333 4.47442e-07 0", no_band, narrow},
           Case{"none in the reference", no_band, "0 1 0", no_band},
       }) {
    const PairScore score = Score(c);
    std::ostringstream text;
    text << score.Fract << " " << score.M2 << " " << score.BMATCH;
    EXPECT_EQ(text.str(), c.result) << c.about;
  }
}

}  // namespace
}  // namespace talven::test
