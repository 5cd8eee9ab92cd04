#include "simulation/ReflectionSource.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "crystal/CellGeometry.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"
#include "textio/List4Row.h"
#include "textio/Record.h"

namespace talven {
namespace {

constexpr std::int32_t kList4Tokens = 7;

/// A row whose first three fields are those of both formats.
std::optional<List4Row> ReadRow(std::string_view line, std::string_view f2_field, std::string_view sigma_field) {
  const auto h = ReadI(Columns(line, 1, 4));
  const auto k = ReadI(Columns(line, 5, 8));
  const auto l = ReadI(Columns(line, 9, 12));
  const auto f2 = ReadF(f2_field, 0);
  const auto sigma = ReadF(sigma_field, 0);
  if (!h || !k || !l || !f2 || !sigma) return std::nullopt;
  return List4Row{.H = *h, .K = *k, .L = *l, .MeasuredF2 = *f2, .Sigma = *sigma};
}

std::optional<List4Row> ReadHklRow(std::string_view line) {
  return ReadRow(line, Columns(line, 13, 20), Columns(line, 21, 28));
}

std::optional<List4Row> ReadNarrowFcfRow(std::string_view line) {
  if (!ReadF(Columns(line, 13, 24), 0)) return std::nullopt;
  return ReadRow(line, Columns(line, 25, 36), Columns(line, 37, 46));
}

/// True for a line that is no row: a comment, or in an FCF file one with another number of texts than a row has.
bool IsPassedOver(std::string_view line, bool is_fcf) {
  if (line.starts_with('#')) return true;
  return is_fcf && CountLineTokens(line) != kList4Tokens;
}

void Widen(IndexRange& range, std::int32_t axis, std::int32_t index) {
  range.IndexMin[axis] = std::min(range.IndexMin[axis], index);
  range.IndexMax[axis] = std::max(range.IndexMax[axis], index);
}

void StoreRow(ReflectionList& list, std::int32_t slot, const List4Row& row, float two_theta) {
  list.H[slot] = row.H;
  list.K[slot] = row.K;
  list.L[slot] = row.L;
  list.F2[slot] = row.MeasuredF2 < row.Sigma ? 0.0F : row.MeasuredF2;
  list.TwoTheta[slot] = two_theta;
}

/// A sin theta beyond which no angle has to be computed, for the row is surely rejected: a little above the limit's
/// own.
double FarSinTheta(const ReflectionLimits& limits) {
  if (!limits.HasAngleLimit()) return kLargestSinTheta;
  return 1.0001 * std::sin(std::min(0.5 * limits.TwoThetaMax / kDegreesPerRadian, 1.5));
}

}  // namespace

std::int32_t CountLineTokens(std::string_view line) {
  const std::string_view seen = line.substr(0, 80);
  std::int32_t count = 0;
  for (std::size_t i = 1; i < seen.size(); ++i) {
    const bool is_blank = seen[i - 1] == ' ';
    const bool begins_text = static_cast<unsigned char>(seen[i]) > ',';
    count += is_blank & begins_text;
  }
  return count;
}

void ReadReflectionSource(Ui& ui, InputFile& source, bool is_fcf, const UnitCell& cell, const ReflectionLimits& limits,
                          ReflectionList& list, IndexRange& range) {
  const double far = FarSinTheta(limits);
  std::int32_t count = 0;
  List4Reader fcf_rows;
  std::string_view line;
  while (count < kReflectionLimit && source.ReadLine(line)) {
    if (IsPassedOver(line, is_fcf)) continue;
    const auto row = is_fcf ? fcf_rows.Read(line, ReadNarrowFcfRow) : ReadHklRow(line);
    if (!row || row->EndsList()) break;
    // Rows rejected below count here too.
    Widen(range, 1, row->H);
    Widen(range, 2, row->K);
    Widen(range, 3, row->L);
    const float sin_theta = ComputeSinTheta(cell, limits.Wavelength, row->H, row->K, row->L);
    if (sin_theta >= kLargestSinTheta || sin_theta > far) continue;
    const float two_theta = TwoThetaOf(sin_theta);
    if (limits.IsBeyond(two_theta)) continue;
    StoreRow(list, ++count, *row, two_theta);
  }
  if (count == kReflectionLimit) ui.ShowMessage(kReflectionLimitMessage);
  list.ReflectionCount = count;
  ui.ShowLine(Record().A("   Reflections read ").I(count, 12).Text());
}

}  // namespace talven
