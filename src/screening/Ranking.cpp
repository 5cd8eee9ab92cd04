#include "screening/Ranking.h"

#include <algorithm>
#include <charconv>

namespace talven {
namespace {

constexpr std::size_t kFewestFitted = 50;
constexpr double kClose = 0.01;
constexpr double kSameCorrelation = 0.999;

Lattice Scaled(Lattice lattice, double scale) {
  lattice.a *= scale;
  lattice.b *= scale;
  lattice.c *= scale;
  return lattice;
}

RankedRow RowOf(const CoarseRow& coarse) {
  RankedRow row;
  row.name = coarse.name;
  row.score = coarse.score.score;
  row.score_as_given = coarse.score.score_as_given;
  if (coarse.lattice) row.lattice = Scaled(*coarse.lattice, coarse.score.scale);
  row.comparison = coarse.comparison;
  return row;
}

void AddNote(std::string& notes, const std::string& note) {
  if (!notes.empty()) notes += ", ";
  notes += note;
}

std::string ScaleNote(double scale) {
  char digits[32];
  return "d times " +
         std::string(digits, std::to_chars(digits, digits + sizeof digits, scale, std::chars_format::fixed, 4).ptr);
}

}  // namespace

CoarseRow ScreenCoarsely(const ScreenTarget& target, const Candidate& candidate, std::size_t index) {
  CoarseRow row;
  row.index = index;
  row.name = candidate.name;
  row.score = ScoreCoarsely(target, candidate);
  row.comparison = CompareWithTarget(target, LinesAsGiven(target, candidate));
  if (candidate.cell) row.lattice = candidate.cell->Start();
  return row;
}

std::size_t SortCoarse(std::vector<CoarseRow>& rows, bool takes_all) {
  std::ranges::sort(rows, [](const CoarseRow& a, const CoarseRow& b) {
    return a.score.score != b.score.score ? a.score.score > b.score.score : a.index < b.index;
  });
  const std::size_t tenth = (rows.size() + 9) / 10;
  return takes_all ? rows.size() : std::min(rows.size(), std::max(tenth, kFewestFitted));
}

void SortFitted(std::vector<FittedRow>& rows) {
  std::ranges::sort(rows, [](const FittedRow& a, const FittedRow& b) {
    return a.fitted.score != b.fitted.score ? a.fitted.score > b.fitted.score : a.coarse.index < b.coarse.index;
  });
}

std::vector<std::optional<std::size_t>> FindSame(const ScreenTarget& target, const std::vector<LineList>& best) {
  std::vector<GriddedLines> patterns;
  std::vector<std::optional<std::size_t>> same;
  for (std::size_t i = 0; i < best.size(); ++i) {
    patterns.emplace_back(best[i].two_theta, best[i].intensities, target.range.first, target.range.last,
                          target.fine.LineOverlap());
    same.emplace_back();
    for (std::size_t j = 0; j < i && !same[i]; ++j)
      if (patterns[i].Correlate(patterns[j]) > kSameCorrelation) same[i] = j;
  }
  return same;
}

std::vector<RankedRow> Rank(const std::vector<FittedRow>& fitted, const std::vector<CoarseRow>& coarse,
                            const std::vector<std::optional<std::size_t>>& same) {
  std::vector<RankedRow> rows;
  for (std::size_t i = 0; i < fitted.size(); ++i) {
    const FittedScore& fit = fitted[i].fitted;
    RankedRow row = RowOf(fitted[i].coarse);
    row.score = fit.score;
    row.lattice = fit.lattice;
    row.texture = fit.texture;
    if (i + 1 < fitted.size() && fit.score - fitted[i + 1].fitted.score <= kClose) AddNote(row.note, "close");
    if (i < same.size() && same[i]) AddNote(row.note, "same as " + rows[*same[i]].name);
    if (!fit.lattice) AddNote(row.note, ScaleNote(fit.scale));
    rows.push_back(std::move(row));
  }
  for (const CoarseRow& row : coarse) {
    rows.push_back(RowOf(row));
    rows.back().note = "coarse";
    const std::size_t i = rows.size() - 1;
    if (i < same.size() && same[i]) AddNote(rows.back().note, "same as " + rows[*same[i]].name);
    if (!row.lattice) AddNote(rows.back().note, ScaleNote(row.score.scale));
  }
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i].rank = i + 1;
  return rows;
}

}  // namespace talven
