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

enum class RescaleState { kNotNeeded, kNeeded, kRescaling };

struct CalculatedRow {
  std::int32_t H = 0;
  std::int32_t K = 0;
  std::int32_t L = 0;
  float Value = 0.0F;

  bool EndsList() const { return H == 0 && K == 0 && L == 0; }
};

CalculatedRow ReadRow(const InputFile& fcf, std::string_view line) {
  if (const auto wide = ReadWideList4Row(line)) return {wide->H, wide->K, wide->L, wide->CalculatedF2};
  const auto h = ReadI(Columns(line, 1, 4));
  const auto k = ReadI(Columns(line, 5, 8));
  const auto l = ReadI(Columns(line, 9, 12));
  const auto value = ReadF(Columns(line, 13, 24), 2);
  if (!h || !k || !l || !value) fcf.Fail("h, k, l and a calculated F squared", Quote(line));
  return {*h, *k, *l, *value};
}

/// The first data row: the one that ends the header.
CalculatedRow ReadFirstRow(InputFile& fcf) {
  while (true) {
    const std::string_view line = fcf.RequireLine("a LIST 4 row");
    if (HasNarrowStatus(line) || ReadWideList4Row(line)) return ReadRow(fcf, line);
  }
}

/// Raises values of no use in a refinement, and finds the sigma. Gives the values as they are written.
void PrepareRow(CalculatedRow& row, RescaleState& state, float& sigma) {
  if (row.Value <= 0.0F) {
    sigma = 2.53F;
    row.Value = 0.54F;
  }
  if (row.Value <= 1.0F) {
    sigma = 2.82F;
    row.Value = 0.73F;
  }
  if (state == RescaleState::kNotNeeded && row.Value > kRescaleThreshold) state = RescaleState::kNeeded;
  if (state == RescaleState::kRescaling) row.Value = Store(0.01 * row.Value);
  if (row.Value > 1.0F) sigma = Store(std::sqrt(static_cast<double>(row.Value)));
}

void WriteList(InputFile& fcf, OutputFile& hkl, RescaleState& state, float& sigma) {
  CalculatedRow row = ReadFirstRow(fcf);
  while (!row.EndsList()) {
    PrepareRow(row, state, sigma);
    hkl.WriteLine(Record().I(row.H, 4).I(row.K, 4).I(row.L, 4).F(row.Value, 8, 0).F(sigma, 8, 0));
    std::string_view line;
    if (!fcf.ReadLine(line)) return;
    row = ReadRow(fcf, line);
  }
}

}  // namespace

void FcfToHkl(Ui& ui, RunState& run, FcfToHklData& data, std::int32_t quiet_flag) {
  InputFile fcf;
  if (!fcf.Open(run.JobFile(".fcf"))) {
    run.StopFlag = 1;
    ui.ShowMessage("FCF File NOT Found");
    return;
  }
  OutputFile hkl;
  hkl.Open("DUMMY.HKL");
  RescaleState state = RescaleState::kNotNeeded;
  WriteList(fcf, hkl, state, data.Sigma);
  if (state == RescaleState::kNeeded) {
    state = RescaleState::kRescaling;
    fcf.Rewind();
    hkl.Rewind();
    WriteList(fcf, hkl, state, data.Sigma);
  }
  ui.line = "   The file DUMMY.HKL has been written";
  if (quiet_flag == 0) ui.pane.WriteTextLine(1);
  hkl.Close();
}

}  // namespace talven
