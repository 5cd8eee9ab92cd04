#include "shelx/FcfToHkl.h"

#include <cmath>
#include <optional>

#include "textio/FieldInput.h"
#include "textio/FixedText.h"
#include "textio/InputFile.h"
#include "textio/List4Row.h"
#include "textio/Numbers.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr float kRescaleThreshold = 100'000.0F;

/// kUnreadable: rescaling was needed, but the list can't be read to its end.
enum class RescaleState { kNotNeeded, kNeeded, kRescaling, kUnreadable };

std::optional<List4Row> ReadNarrowRow(std::string_view line) {
  const auto h = ReadI(Columns(line, 1, 4));
  const auto k = ReadI(Columns(line, 5, 8));
  const auto l = ReadI(Columns(line, 9, 12));
  const auto value = ReadF(Columns(line, 13, 24), 2);
  if (!h || !k || !l || !value) return std::nullopt;
  return List4Row{.H = *h, .K = *k, .L = *l, .CalculatedF2 = *value};
}

/// The line of the first data row: the one that ends the header.
std::string_view FindFirstRow(InputFile& fcf) {
  while (true) {
    const std::string_view line = fcf.RequireLine("a LIST 4 row");
    if (HasNarrowStatus(line) || ReadWideList4Row(line)) return line;
  }
}

/// Raises values of no use in a refinement, and finds the sigma. Gives the value as it is written.
float PrepareValue(float value, RescaleState& state, float& sigma) {
  if (value <= 0.0F) {
    sigma = 2.53F;
    value = 0.54F;
  }
  if (value <= 1.0F) {
    sigma = 2.82F;
    value = 0.73F;
  }
  if (state == RescaleState::kNotNeeded && value > kRescaleThreshold) state = RescaleState::kNeeded;
  if (state == RescaleState::kRescaling) value = Store(0.01 * value);
  if (value > 1.0F) sigma = Store(std::sqrt(static_cast<double>(value)));
  return value;
}

/// Writes the list, from where rescaling turns out to be needed on without the rows: they will be written anew. Gives
/// the line that is no row, if there is one.
std::optional<std::string_view> WriteList(InputFile& fcf, OutputFile& hkl, RescaleState& state, float& sigma) {
  List4Reader rows;
  std::string_view line = FindFirstRow(fcf);
  do {
    const auto row = rows.Read(line, ReadNarrowRow);
    if (!row) return line;
    if (row->EndsList()) break;
    const float value = PrepareValue(row->CalculatedF2, state, sigma);
    if (state == RescaleState::kNeeded) continue;
    hkl.WriteLine(Record().I(row->H, 4).I(row->K, 4).I(row->L, 4).F(value, 8, 0).F(sigma, 8, 0));
  } while (fcf.ReadLine(line));
  return std::nullopt;
}

}  // namespace

void FcfToHkl(Ui& ui, RunState& run, FcfToHklData& data, std::int32_t quiet_flag) {
  InputFile fcf;
  if (!fcf.Open(Folder(), run.JobFile(".fcf"))) {
    run.StopFlag = 1;
    ui.ShowMessage("FCF File NOT Found");
    return;
  }
  OutputFile hkl;
  hkl.Open(Folder(), "DUMMY.HKL");
  RescaleState state = RescaleState::kNotNeeded;
  auto bad_line = WriteList(fcf, hkl, state, data.Sigma);
  if (state == RescaleState::kNeeded) {
    state = bad_line ? RescaleState::kUnreadable : RescaleState::kRescaling;
    fcf.Rewind();
    hkl.Rewind();
    bad_line = WriteList(fcf, hkl, state, data.Sigma);
  }
  if (bad_line) fcf.Fail("h, k, l and a calculated F squared", Quote(*bad_line));
  ui.line = "   The file DUMMY.HKL has been written";
  if (quiet_flag == 0) ui.pane.WriteTextLine(1);
  hkl.Close();
}

}  // namespace talven
