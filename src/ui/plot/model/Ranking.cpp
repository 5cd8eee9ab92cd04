#include "ui/plot/model/Ranking.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "screening/LoadCandidate.h"
#include "textio/FatalIoError.h"
#include "ui/plot/model/NumberText.h"

namespace talven {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

std::vector<std::string_view> SplitAtTabs(std::string_view line) {
  std::vector<std::string_view> fields;
  for (;;) {
    const std::size_t tab = line.find('\t');
    fields.push_back(line.substr(0, tab));
    if (tab == std::string_view::npos) return fields;
    line.remove_prefix(tab + 1);
  }
}

/// Where the columns of a table stand.
class Columns {
 public:
  Columns(const TextInput& input, std::string_view head) : names_(SplitAtTabs(head)) {
    for (const std::string_view name : {"rank", "candidate", "score", "a", "b", "c", "alpha", "beta", "gamma"}) {
      if (std::ranges::find(names_, name) == names_.end()) {
        input.Fail("a column " + std::string(name) + ", as talven-run screen writes it", Quote(head));
      }
    }
  }

  /// Empty where the line is too short.
  std::string_view Field(const std::vector<std::string_view>& fields, std::string_view name) const {
    const auto index = static_cast<std::size_t>(std::ranges::find(names_, name) - names_.begin());
    return index < fields.size() ? fields[index] : std::string_view();
  }

 private:
  std::vector<std::string_view> names_;
};

double Number(const TextInput& input, std::string_view field) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
  if (error != std::errc() || end != field.data() + field.size()) input.Fail("a number", Quote(field));
  return value;
}

std::optional<Lattice> ReadCell(const TextInput& input, const Columns& columns,
                                const std::vector<std::string_view>& fields) {
  if (columns.Field(fields, "a").empty()) return std::nullopt;
  const auto value = [&](std::string_view name) { return Number(input, columns.Field(fields, name)); };
  const Lattice cell{value("a"), value("b"), value("c"), value("alpha"), value("beta"), value("gamma")};
  if (!cell.IsValid()) input.Fail("a cell with a volume", "lengths and angles that span none");
  return cell;
}

/// Lorentz and polarisation factors of a powder line, without a monochromator.
double LorentzPolarisation(double two_theta) {
  const double theta = two_theta / 2.0 * kDegree;
  const double cosine = std::cos(two_theta * kDegree);
  return (1.0 + cosine * cosine) / (std::sin(theta) * std::sin(theta) * std::cos(theta));
}

Candidate Load(const std::string& path, const Pattern& measured, double wavelength) {
  ScreenOptions options;
  options.wavelength = wavelength;
  try {
    return LoadCandidate(Folder(), path, MakeScreenTarget(measured, options));
  } catch (const std::invalid_argument& error) {
    throw FatalIoError(path + ": " + error.what());
  }
}

std::string TitleOf(const RankingRow& row) {
  std::string title = row.candidate + "   score " + row.score;
  if (!row.cell) return title;
  const Lattice& cell = *row.cell;
  title += "  ";
  for (const double value : {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma}) {
    title += ' ';
    title += NumberText(value, 6);
  }
  return title;
}

}  // namespace

std::vector<RankingRow> ReadRanking(TextInput& input) {
  const std::string head(input.RequireLine("the head of a ranking table"));
  const Columns columns(input, head);
  std::vector<RankingRow> rows;
  for (std::string_view line; input.ReadLine(line);) {
    if (line.empty()) continue;
    const std::vector<std::string_view> fields = SplitAtTabs(line);
    const auto text = [&](std::string_view name) { return std::string(columns.Field(fields, name)); };
    if (text("candidate").empty()) input.Fail("a row of a ranking table", Quote(line));
    rows.push_back({text("rank"), text("candidate"), text("score"), ReadCell(input, columns, fields), text("note")});
  }
  return rows;
}

StickSet SticksOf(const RankingRow& row, const std::string& path, const Pattern& measured, double wavelength) {
  const Candidate candidate = Load(path, measured, wavelength);
  StickSet set{TitleOf(row), {}};
  double strongest = 0.0;
  for (std::size_t i = 0; i < candidate.inverse_squares.size(); ++i) {
    const bool has_cell = row.cell && i < candidate.indices.size();
    const MillerIndex index = has_cell ? candidate.indices[i] : MillerIndex{};
    const double inverse_square =
        has_cell ? InverseSquareSpacing(*row.cell, index.h, index.k, index.l) : candidate.inverse_squares[i];
    const double two_theta = TwoThetaOf(inverse_square, wavelength);
    if (two_theta < measured.two_theta.front() || two_theta > measured.two_theta.back()) continue;
    const double intensity = candidate.strengths[i] * (has_cell ? LorentzPolarisation(two_theta) : 1.0);
    const std::string label = std::to_string(index.h) + " " + std::to_string(index.k) + " " + std::to_string(index.l);
    set.sticks.push_back({two_theta, intensity, has_cell ? label : std::string()});
    strongest = std::max(strongest, intensity);
  }
  for (Stick& stick : set.sticks) stick.share = strongest > 0.0 ? stick.share / strongest : 0.0;
  std::ranges::stable_sort(set.sticks, {}, &Stick::two_theta);
  return set;
}

}  // namespace talven
