// A SHELX HKL file: h, k, l, F squared and its sigma, ended by a row of three zero indices or by the file.
//
//        1   0   2  123.40    2.10       3I4,2F8.0
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "textio/TextOutput.h"

namespace talven {

struct HklRow {
  std::int32_t H = 0;
  std::int32_t K = 0;
  std::int32_t L = 0;
  float F2 = 0.0F;
  float Sigma = 0.0F;

  bool EndsList() const { return H == 0 && K == 0 && L == 0; }
};

/// The row in columns 1 to 28, nothing if a field there holds no number.
std::optional<HklRow> ReadHklRow(std::string_view line);

/// Writes 3I4,2F8.0: whole numbers, each with its point.
void WriteHklRow(const HklRow& row, TextOutput& hkl);

/// A reflection that was not measured, with indices of any size, sin theta and 2theta in degrees.
struct DummyRow {
  std::int64_t h = 0;
  std::int64_t k = 0;
  std::int64_t l = 0;
  float sin_theta = 0.0F;
  float two_theta = 0.0F;
};

/// Writes 3I4,4F8.2, with an intensity of 100 and a sigma of 1 ahead of sin theta and 2theta.
void WriteDummyRow(const DummyRow& row, TextOutput& hkl);

}  // namespace talven
