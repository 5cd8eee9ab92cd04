#include "shelx/ReadReflections.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "crystal/CellGeometry.h"
#include "shelx/HklFile.h"
#include "shelx/List4File.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

/// The lines of an HKL file.
struct HklLines {
  static bool ArePassedOver(std::string_view line) { return line.starts_with('#'); }
  static bool LookLikeRows(std::string_view /*line*/) { return false; }
  static std::optional<HklRow> Read(std::string_view line) { return ReadHklRow(line); }
};

/// The lines of an FCF file, as the rows that an HKL file would have.
class FcfLines {
 public:
  static bool ArePassedOver(std::string_view line) {
    return line.starts_with('#') || CountLineTokens(line) != kList4Tokens;
  }
  /// Whole numbers in the columns of h, k and l, and more after them.
  static bool LookLikeRows(std::string_view line) {
    for (std::size_t first = 1; first < 13; first += 4) {
      const std::string_view field = Trim(Columns(line, first, first + 3));
      if (field.empty() || !ReadI(field)) return false;
    }
    return !Trim(Columns(line, 13, 80)).empty();
  }
  std::optional<HklRow> Read(std::string_view line) {
    const auto row = rows_.Read(line);
    if (!row) return std::nullopt;
    return HklRow{row->H, row->K, row->L, row->MeasuredF2, row->Sigma};
  }

 private:
  List4Reader rows_{List4Values::kMeasured};
};

/// A sin theta beyond which no angle has to be computed, for the row is surely rejected: a little above the limit's
/// own.
double FarSinTheta(const ReflectionLimits& limits) {
  if (!limits.HasAngleLimit()) return kLargestSinTheta;
  return 1.0001 * std::sin(std::min(0.5 * limits.TwoThetaMax / kDegreesPerRadian, 1.5));
}

/// Adds a row to the list, if it is within reach.
class Selection {
 public:
  Selection(const ReciprocalCell& cell, const ReflectionLimits& limits, ReflectionList& list)
      : cell_(cell), limits_(limits), list_(list), far_(FarSinTheta(limits)) {}

  void AddIfWithin(const HklRow& row) {
    // Rows rejected below count here too.
    list_.Range.Widen(1, row.H);
    list_.Range.Widen(2, row.K);
    list_.Range.Widen(3, row.L);
    const float sin_theta = ComputeSinTheta(cell_, limits_.Wavelength, row.H, row.K, row.L);
    if (sin_theta >= kLargestSinTheta || sin_theta > far_) return;
    const float two_theta = TwoThetaOf(sin_theta);
    if (!limits_.IsBeyond(two_theta)) Add(row, two_theta);
  }

 private:
  void Add(const HklRow& row, float two_theta) {
    const std::int32_t slot = ++list_.ReflectionCount;
    list_.H[slot] = row.H;
    list_.K[slot] = row.K;
    list_.L[slot] = row.L;
    list_.F2[slot] = row.F2 < row.Sigma ? 0.0F : row.F2;
    list_.TwoTheta[slot] = two_theta;
  }

  const ReciprocalCell& cell_;
  const ReflectionLimits& limits_;
  ReflectionList& list_;
  double far_;
};

template <typename Lines>
ReflectionReading ReadReflections(TextInput& source, Lines lines, Selection selection, ReflectionList& list) {
  ReflectionReading reading;
  list.ReflectionCount = 0;
  std::string_view line;
  while (list.ReflectionCount < kReflectionLimit && source.ReadLine(line)) {
    if (lines.ArePassedOver(line)) {
      if (lines.LookLikeRows(line) && ++reading.passed_over_count == 1) reading.first_passed_over = source.LineNumber();
      continue;
    }
    const std::optional<HklRow> row = lines.Read(line);
    if (!row) {
      reading.unreadable_line = source.LineNumber();
      reading.unreadable_text = line;
      break;
    }
    if (row->EndsList()) break;
    ++reading.rows_read;
    selection.AddIfWithin(*row);
  }
  reading.rows_kept = list.ReflectionCount;
  reading.limit_met = list.ReflectionCount == kReflectionLimit;
  return reading;
}

}  // namespace

ReflectionReading ReadHklReflections(TextInput& hkl, const ReciprocalCell& cell, const ReflectionLimits& limits,
                                     ReflectionList& list) {
  return ReadReflections(hkl, HklLines(), Selection(cell, limits, list), list);
}

ReflectionReading ReadFcfReflections(TextInput& fcf, const ReciprocalCell& cell, const ReflectionLimits& limits,
                                     ReflectionList& list) {
  return ReadReflections(fcf, FcfLines(), Selection(cell, limits, list), list);
}

}  // namespace talven
