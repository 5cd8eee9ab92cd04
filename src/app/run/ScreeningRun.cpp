#include "app/run/ScreeningRun.h"

#include <algorithm>
#include <exception>
#include <map>
#include <new>
#include <string_view>

#include "app/run/OptionText.h"
#include "app/run/StopSignal.h"
#include "app/run/WorkInOrder.h"
#include "screening/LoadCandidate.h"

namespace talven {
namespace {

constexpr std::size_t kMostRows = 1'000'000'000;

/// A value, or why there is none.
template <typename Value>
struct Attempt {
  std::optional<Value> value;
  std::vector<std::string> notices;
  std::string failure;
};

/// Calls `make`, whatever it throws.
template <typename Value, typename Function>
Attempt<Value> Try(const Function& make) {
  Attempt<Value> attempt;
  try {
    attempt.value = make(attempt.notices);
  } catch (const std::bad_alloc&) {
    attempt.failure = "there is not enough memory";
  } catch (const std::exception& error) {
    attempt.failure = error.what();
  }
  return attempt;
}

/// Tells the first notice of each kind and counts the others: the files of one source are all noticed for the same.
class NoticeCounter {
 public:
  explicit NoticeCounter(Reporter& reporter) : reporter_(reporter) {}

  void Take(const std::string& file, const std::string& notice) {
    if (++counts_[KindOf(file, notice)] == 1) reporter_.Notice(file, notice);
  }
  void TellCounts() const {
    for (const auto& [kind, count] : counts_)
      if (count > 1) reporter_.Notice("candidates", std::to_string(count - 1) + " more notices of this kind: " + kind);
  }

 private:
  /// What a notice says of any file: without its name, the line, numbers and particulars.
  static std::string KindOf(std::string_view file, std::string_view notice) {
    if (notice.starts_with(file)) notice.remove_prefix(std::min(file.size() + 2, notice.size()));
    const std::size_t colon = notice.find(": ");
    if (notice.starts_with("line ") && colon != std::string_view::npos) notice.remove_prefix(colon + 2);
    std::string kind(notice.substr(0, notice.find_first_of(":,;")));
    std::erase_if(kind, [](char c) { return c >= '0' && c <= '9'; });
    kind.erase(0, kind.find_first_not_of(' '));
    return kind;
  }

  Reporter& reporter_;
  std::map<std::string, std::size_t> counts_;
};

/// Makes a value for each of many files and hands it over in their order; failures are told. False after a stop signal.
template <typename Value, typename Make, typename Take>
bool ForEach(std::size_t count, std::size_t threads, Reporter& reporter, const Make& make, const Take& take) {
  WorkInOrder<Attempt<Value>> work;
  std::size_t done = 0;
  work.work = [&make](std::size_t i) {
    return Try<Value>([&make, i](std::vector<std::string>& notices) { return make(i, notices); });
  };
  work.stops = [] { return StopSignal() != 0; };
  work.idle = [&] { reporter.ShowProgress(done, count); };
  work.take = [&](std::size_t i, Attempt<Value> attempt) {
    take(i, std::move(attempt));
    reporter.ShowProgress(++done, count);
  };
  return work.Run(count, threads) == count;
}

/// Stage 2 for the first rows. Nothing after a stop signal.
std::optional<std::vector<FittedRow>> RunFits(const ScreenTarget& target, const std::vector<CoarseRow>& rows,
                                              std::size_t count, std::size_t threads, Reporter& reporter) {
  std::vector<FittedRow> fitted;
  const bool is_whole = ForEach<FittedScore>(
      count, threads, reporter,
      [&](std::size_t i, std::vector<std::string>&) {
        return FitCandidate(target, LoadCandidate(Folder(), rows[i].name, target), rows[i].score.scale);
      },
      [&](std::size_t i, Attempt<FittedScore> attempt) {
        if (attempt.value)
          fitted.push_back({rows[i], *attempt.value});
        else
          reporter.Fail(rows[i].name, attempt.failure);
      });
  if (!is_whole) return std::nullopt;
  SortFitted(fitted);
  return fitted;
}

/// The lines of the best candidates as given, in the order of the table; none for one that can no longer be read.
std::vector<LineList> LinesOfBest(const ScreenTarget& target, const std::vector<FittedRow>& fitted,
                                  const std::vector<CoarseRow>& coarse, std::size_t threads, Reporter& reporter) {
  const auto name_of = [&](std::size_t i) {
    return i < fitted.size() ? fitted[i].coarse.name : coarse[i - fitted.size()].name;
  };
  std::vector<LineList> lines;
  ForEach<LineList>(
      std::min(fitted.size() + coarse.size(), kComparedWithEachOther), threads, reporter,
      [&](std::size_t i, std::vector<std::string>&) {
        return LinesAsGiven(target, LoadCandidate(Folder(), name_of(i), target));
      },
      [&](std::size_t, Attempt<LineList> attempt) { lines.push_back(std::move(attempt.value).value_or(LineList())); });
  return lines;
}

std::string TextureText(const Texture& texture) {
  const MillerIndex& axis = kTextureAxes[texture.axis];
  return std::to_string(axis.h) + std::to_string(axis.k) + std::to_string(axis.l) + " " +
         Cell::Fixed(texture.r, 3).TabText();
}

Row RowOf(const RankedRow& ranked) {
  Row row = {Cell::Integer(static_cast<std::int64_t>(ranked.rank)), Cell::Text(ranked.name),
             Cell::Fixed(ranked.score, 4), Cell::Fixed(ranked.score_as_given, 4)};
  if (ranked.lattice) {
    const Lattice& cell = *ranked.lattice;
    for (const double length : {cell.a, cell.b, cell.c}) row.push_back(Cell::Fixed(length, 4));
    for (const double angle : {cell.alpha, cell.beta, cell.gamma}) row.push_back(Cell::Fixed(angle, 3));
  } else {
    row.resize(row.size() + 6);
  }
  row.push_back(ranked.texture ? Cell::Text(TextureText(*ranked.texture)) : Cell());
  row.push_back(Cell::Fixed(ranked.comparison.m1, 4));
  row.push_back(Cell::Fixed(ranked.comparison.m2, 4));
  row.push_back(Cell::Fixed(ranked.comparison.bmatch, 3));
  row.push_back(ranked.note.empty() ? Cell() : Cell::Text(ranked.note));
  return row;
}

}  // namespace

ColumnNames RankingColumns() {
  return {"rank",    "candidate", "score", "score_as_given", "a",   "b", "c", "alpha", "beta", "gamma",
          "texture", "m1",        "m2",    "bmatch",         "note"};
}

void AddTopOption(CLI::App& app, std::size_t& top) {
  AddOption(
      app, "--top", "N", [&top](const std::string& text) { top = CountOption("--top", text, kMostRows); },
      "writes the best N rows only");
}

std::optional<ScreenTarget> ReadMeasured(const std::string& path, const ScreenOptions& options, Reporter& reporter) {
  Attempt<ScreenTarget> attempt =
      Try<ScreenTarget>([&](std::vector<std::string>&) { return LoadScreenTarget(Folder(), path, options); });
  if (!attempt.value) {
    reporter.Fail(path, attempt.failure);
    return std::nullopt;
  }
  for (const std::string& notice : attempt.value->notices) reporter.Notice(path, notice);
  return std::move(attempt.value);
}

CoarseResult RunCoarse(const ScreenTarget& target, const std::vector<CandidateFile>& files, std::size_t threads,
                       Reporter& reporter) {
  CoarseResult result;
  NoticeCounter notices_of_all(reporter);
  result.is_whole = ForEach<CoarseRow>(
      files.size(), threads, reporter,
      [&](std::size_t i, std::vector<std::string>& notices) {
        const Candidate candidate = LoadCandidate(Folder(), files[i].path, target);
        notices = candidate.notices;
        return ScreenCoarsely(target, candidate, files[i].index);
      },
      [&](std::size_t i, Attempt<CoarseRow> attempt) {
        for (const std::string& notice : attempt.notices) notices_of_all.Take(files[i].path, notice);
        if (attempt.value) {
          result.rows.push_back(std::move(*attempt.value));
        } else {
          reporter.Fail(files[i].path, attempt.failure);
          result.failed.push_back(files[i]);
        }
      });
  notices_of_all.TellCounts();
  return result;
}

void RunRanking(const ScreenTarget& target, std::vector<CoarseRow> rows, std::size_t top, std::size_t threads,
                Reporter& reporter) {
  const std::size_t fitted_count = SortCoarse(rows, target.texture);
  const auto fitted = RunFits(target, rows, fitted_count, threads, reporter);
  if (!fitted) return;
  rows.erase(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(fitted_count));
  const std::vector<LineList> lines = LinesOfBest(target, *fitted, rows, threads, reporter);
  if (StopSignal() != 0) return;
  reporter.BeginTable(RankingColumns());
  for (const RankedRow& row : Rank(*fitted, rows, FindSame(target, lines))) {
    if (top > 0 && row.rank > top) break;
    reporter.AddRow(RowOf(row));
  }
}

}  // namespace talven
