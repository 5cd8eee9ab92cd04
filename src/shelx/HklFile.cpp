#include "shelx/HklFile.h"

#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {

std::optional<HklRow> ReadHklRow(std::string_view line) {
  const auto h = ReadI(Columns(line, 1, 4));
  const auto k = ReadI(Columns(line, 5, 8));
  const auto l = ReadI(Columns(line, 9, 12));
  const auto f2 = ReadF(Columns(line, 13, 20), 0);
  const auto sigma = ReadF(Columns(line, 21, 28), 0);
  if (!h || !k || !l || !f2 || !sigma) return std::nullopt;
  return HklRow{*h, *k, *l, *f2, *sigma};
}

void WriteHklRow(const HklRow& row, TextOutput& hkl) {
  hkl.WriteLine(Record().I(row.H, 4).I(row.K, 4).I(row.L, 4).F(row.F2, 8, 0).F(row.Sigma, 8, 0));
}

void WriteDummyRow(const DummyRow& row, TextOutput& hkl) {
  Record record;
  record.I(row.h, 4).I(row.k, 4).I(row.l, 4).A("  100.00    1.00").F(row.sin_theta, 8, 2).F(row.two_theta, 8, 2);
  hkl.WriteLine(record);
}

}  // namespace talven
