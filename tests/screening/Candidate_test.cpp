#include "screening/Candidate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>

#include "crystal/ScatteringTables.h"
#include "screening/ComparisonScores.h"
#include "screening/Ranking.h"
#include "screening/ScoreCandidate.h"

namespace talven {
namespace {

SymmetryGroup GroupOf(const std::vector<std::string_view>& operators) {
  std::vector<SymmetryOperator> parsed;
  for (const std::string_view text : operators) parsed.push_back(*ParseOperator(text));
  return SymmetryGroup(parsed);
}

/// A structure of two atoms, which needs no tables.
CrystalModel ModelOf(const Lattice& lattice, double x, const SymmetryGroup& symmetry = SymmetryGroup()) {
  CrystalModel model;
  model.lattice = lattice;
  model.symmetry = symmetry;
  model.scatterers.push_back({.label = "X", .form = {.a = {8, 4, 2, 1}, .b = {20, 10, 5, 1}, .c = 0.5}});
  for (const Vector3& position : {Vector3{0, 0, 0}, Vector3{x, 0.31, 0.23}})
    model.atoms.push_back({.label = "X", .position = position});
  return model;
}

const Lattice kCell{.a = 6.0, .b = 8.5, .c = 5.2, .alpha = 90.0, .beta = 101.0, .gamma = 90.0};
const LineRange kRange{1.54056, 5.0, 50.0};

/// The counts of a candidate: profiles on a flat background.
Pattern Measured(const Candidate& candidate) {
  ScreenOptions options;
  options.wavelength = kRange.wavelength;
  Pattern empty;
  for (double x = kRange.first; x < kRange.last; x += 0.02) {
    empty.two_theta.push_back(x);
    empty.counts.push_back(std::fmod(x, 1.0) < 0.015 ? 1.0 : 0.0);
  }
  const LineList lines = LinesAsGiven(MakeScreenTarget(empty, options), candidate);
  Pattern pattern = empty;
  for (std::size_t i = 0; i < pattern.counts.size(); ++i) {
    pattern.counts[i] = 100.0;
    for (std::size_t line = 0; line < lines.two_theta.size(); ++line)
      pattern.counts[i] += lines.intensities[line] * PseudoVoigt(pattern.two_theta[i] - lines.two_theta[line], 0.12);
    pattern.counts[i] = std::round(pattern.counts[i]);
  }
  return pattern;
}

TEST(FreeCell, HasTheParametersThatSymmetryLeavesFree) {
  const Lattice start{.a = 7.0, .b = 7.0, .c = 9.0, .alpha = 90.0, .beta = 90.0, .gamma = 120.0};
  const Lattice cube{.a = 7.0, .b = 7.0, .c = 7.0, .alpha = 80.0, .beta = 80.0, .gamma = 80.0};
  const struct {
    std::vector<std::string_view> operators;
    std::size_t lengths, parameters;
    Lattice start;
  } cases[] = {
      {{"x,y,z"}, 3, 6, start},
      {{"x,y,z", "-x,y,-z"}, 3, 4, start},
      {{"x,y,z", "-x,-y,z"}, 3, 4, start},
      {{"x,y,z", "-x,-y,z", "-x,y,-z", "x,-y,-z"}, 3, 3, start},
      {{"x,y,z", "-y,x,z", "-x,-y,z", "y,-x,z"}, 2, 2, start},
      {{"x,y,z", "-y,x-y,z", "y-x,-x,z"}, 2, 2, start},
      {{"x,y,z", "y,z,x", "z,x,y"}, 1, 2, cube},
      {{"x,y,z", "y,z,x", "z,x,y", "-x,-y,z", "-y,-z,x", "-z,-x,y", "-x,y,-z", "-y,z,-x", "-z,x,-y", "x,-y,-z",
        "y,-z,-x", "z,-x,-y"},
       1,
       1,
       start},
      // A C-centred cell in its primitive setting: a = b, alpha = beta.
      {{"x,y,z", "-y,-x,-z"}, 2, 4, start},
  };
  for (const auto& c : cases) {
    const SymmetryGroup group = GroupOf(c.operators);
    const FreeCell cell(c.start, group);
    EXPECT_EQ(cell.LengthCount(), c.lengths) << c.operators.back();
    EXPECT_EQ(cell.ParameterCount(), c.parameters) << c.operators.back();
    std::vector<double> changes(cell.ParameterCount(), 0.01);
    EXPECT_NEAR(cell.At(changes).a, 1.01 * c.start.a, 1e-9);
    EXPECT_TRUE(cell.At(changes).IsValid());
  }
}

TEST(Texture, FactorIsTheMeanOverAllEquivalents) {
  // Along the axis r^-3, across it r^1.5.
  EXPECT_NEAR(MarchDollase(0.7, 1.0), 1.0 / (0.7 * 0.7 * 0.7), 1e-12);
  EXPECT_NEAR(MarchDollase(0.7, 0.0), std::pow(0.7, 1.5), 1e-12);
  EXPECT_EQ(MarchDollase(1.0, 0.37), 1.0);
  const Lattice lattice{.a = 5.0, .b = 5.0, .c = 8.0};
  const SymmetryGroup group = GroupOf({"x,y,z", "-y,x,z", "-x,-y,z", "y,-x,z"});
  const std::vector<MillerIndex> reflections = {{1, 0, 0}, {2, 1, 0}, {1, 1, 3}};
  const TextureAngles angles(reflections, {1, 0, 0}, lattice, group);
  for (std::size_t i = 0; i < reflections.size(); ++i) {
    double sum = 0.0;
    const auto equivalents = group.Equivalents(reflections[i]);
    for (const MillerIndex& index : equivalents) {
      const double x = index.h / 5.0;
      const double squared = x * x + index.k * index.k / 25.0 + index.l * index.l / 64.0;
      sum += std::pow(0.64 * x * x / squared + (1.0 - x * x / squared) / 0.8, -1.5);
    }
    EXPECT_NEAR(angles.Factor(i, 0.8), sum / static_cast<double>(equivalents.size()), 1e-12);
  }
}

TEST(ScoreCandidate, FindsTheCellOfAChangedStructure) {
  const SymmetryGroup monoclinic = GroupOf({"x,y,z", "-x,y+1/2,-z"});
  Lattice grown = kCell;
  grown.a *= 1.02;
  grown.b *= 1.01;
  grown.c *= 1.025;
  grown.beta += 0.8;
  const Candidate truth = CandidateOf(ModelOf(grown, 0.2, monoclinic), kRange, false);
  ScreenOptions options;
  options.wavelength = kRange.wavelength;
  const ScreenTarget target = MakeScreenTarget(Measured(truth), options);
  const Candidate candidate = CandidateOf(ModelOf(kCell, 0.2, monoclinic), kRange, false);
  const CoarseScore coarse = ScoreCoarsely(target, candidate);
  const FittedScore fitted = FitCandidate(target, candidate, coarse.scale);
  EXPECT_LT(coarse.score_as_given, 0.6);
  EXPECT_GT(fitted.score, 0.995);
  ASSERT_TRUE(fitted.lattice);
  EXPECT_NEAR(fitted.lattice->a, grown.a, 0.01);
  EXPECT_NEAR(fitted.lattice->b, grown.b, 0.01);
  EXPECT_NEAR(fitted.lattice->c, grown.c, 0.01);
  EXPECT_NEAR(fitted.lattice->beta, grown.beta, 0.1);
  EXPECT_EQ(fitted.lattice->alpha, 90.0);
  const Candidate other = CandidateOf(ModelOf(kCell, 0.45, monoclinic), kRange, false);
  EXPECT_LT(FitCandidate(target, other, ScoreCoarsely(target, other).scale).score, fitted.score - 0.01);
}

TEST(ScoreCandidate, FindsTextureAndItsAxis) {
  Candidate truth = CandidateOf(ModelOf(kCell, 0.2), kRange, true);
  const Candidate candidate = truth;
  for (std::size_t i = 0; i < truth.strengths.size(); ++i) truth.strengths[i] *= truth.texture[1].Factor(i, 0.7);
  ScreenOptions options;
  options.wavelength = kRange.wavelength;
  options.texture = true;
  const FittedScore fitted = FitCandidate(MakeScreenTarget(Measured(truth), options), candidate, 1.0);
  ASSERT_TRUE(fitted.texture);
  EXPECT_EQ(fitted.texture->axis, 1U);
  EXPECT_NEAR(fitted.texture->r, 0.7, 0.03);
  EXPECT_GT(fitted.score, 0.995);
}

TEST(ScoreCandidate, PatternsAndPeakListsHaveOneScale) {
  const Candidate truth = CandidateOf(ModelOf(kCell, 0.2), kRange, false);
  const Pattern pattern = Measured(truth);
  ScreenOptions options;
  options.wavelength = kRange.wavelength;
  const ScreenTarget target = MakeScreenTarget(pattern, options);
  // The same pattern seen with a wavelength that is told 2 % too short.
  const Candidate seen = CandidateOfPattern(pattern, kRange.wavelength / 1.02, 0.12);
  const FittedScore fitted = FitCandidate(target, seen, ScoreCoarsely(target, seen).scale);
  EXPECT_NEAR(fitted.scale, 1.02, 1e-3);
  EXPECT_GT(fitted.score, 0.97);
  EXPECT_FALSE(fitted.lattice);
  // As a list of peaks the reference still knows its structure.
  const FittedScore by_list = FitCandidate(MakeScreenTarget(target.peaks, options), truth, 1.0);
  EXPECT_GT(by_list.score, 0.9);
  const ComparisonScores scores = CompareWithTarget(target, LinesAsGiven(target, truth));
  EXPECT_GT(scores.m1, 0.5);
}

TEST(ScoreCandidate, TellsThatTheLinesAreMuchTooNarrow) {
  const Pattern pattern = Measured(CandidateOf(ModelOf(kCell, 0.2), kRange, false));
  for (const auto& [fwhm, count] : {std::pair(0.12, 0U), {0.05, 0U}, {0.02, 1U}})
    EXPECT_EQ(MakeScreenTarget(pattern, {.wavelength = kRange.wavelength, .fwhm = fwhm}).notices.size(), count) << fwhm;
}

TEST(ScoreCandidate, HasNothingToSayWithoutALineInRange) {
  const ScreenTarget target =
      MakeScreenTarget(Measured(CandidateOf(ModelOf(kCell, 0.2), kRange, false)), {.wavelength = kRange.wavelength});
  Lattice tiny{.a = 1.5, .b = 1.5, .c = 1.5};
  const Candidate candidate = CandidateOf(ModelOf(tiny, 0.2), kRange, false);
  const CoarseRow row = ScreenCoarsely(target, candidate, 1);
  EXPECT_EQ(row.score.score, 0.0);
  EXPECT_EQ(FitCandidate(target, candidate, row.score.scale).score, 0.0);
}

TEST(ScreenTarget, RefusesWhatItCantUse) {
  Pattern flat;
  for (int i = 0; i < 100; ++i) flat.two_theta.push_back(10 + 0.1 * i);
  flat.counts.assign(100, 5.0);
  const struct {
    Pattern pattern;
    ScreenOptions options;
    std::string_view text;
  } cases[] = {
      {flat, {}, "the wavelength is not known; --wavelength tells it"},
      {flat, {.wavelength = 1.5, .fwhm = 0.0}, "the FWHM must lie between 0.001 and 5 degrees"},
      {flat, {.wavelength = 1.5}, "there is nothing above the background"},
      {{}, {.wavelength = 1.5}, "there are fewer than two points between 0 and 179 degrees"},
  };
  for (const auto& c : cases) {
    try {
      MakeScreenTarget(c.pattern, c.options);
      ADD_FAILURE() << c.text;
    } catch (const std::invalid_argument& error) {
      EXPECT_EQ(error.what(), c.text);
    }
  }
}

}  // namespace
}  // namespace talven
