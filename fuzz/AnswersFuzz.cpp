// Answers of a whole session, on sound files of every kind.
#include "support/FuzzedSession.h"

namespace talven::fuzz {
namespace {

const Files kFiles = {
    {"ABC.INS",
     "TITL a\nCELL 0.7 2.9 2.9 2.9 90 90 90\nZERR 4 .1 .1 .1 0 0 0\nREM SG 9 4 C2/c\nSFAC C\nUNIT 4\n"
     "FVAR 1.0\nC1     1   0.1   0.2   0.3\nHKLF 4\n"},
    {"ABC.HKL", "   1   0   0  100.00    1.00\n   1   1  -1   50.00    1.00\n"},
    {"ABC.FCF", "   1   2   3      400.00        1.00      1.00 o\n   0   1   3       40.00        1.00      1.00 o\n"},
    {"ABC.ING", "t\n1.54\n4\n4.1\n.02\n4.\n6\n4.00 1000\n4.02 2000\n4.04 3000\n4.06 4000\n4.08 5000\n4.10 6000\n"},
    {"ABC.CIF",
     "_diffraction_radiation_wavelength 1.5406\n_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 5\n"
     "_pd_meas_2theta_range_inc .5\n_pd_meas_step_count_time 2.5\nloop_\n_pd_meas_counts_total\n10\n20\n"},
    {"ABC.TXT", "REM\n4 1\n4.5 2\n5 3\n"},
    {"R.LST", "   Radiation Wavelength   1.54\n   Marked\n10 1000\n11 500\n20 2000\n21 800\n30 100\n"},
    {"S.LST", "   Marked\n10.1 400\n20.1 1600\n40 1200\n"},
};

/// Could hold a path that leads out of the scratch directory.
bool MayLeave(std::string_view answers) {
  return answers.find('/') != answers.npos || answers.find("..") != answers.npos;
}

}  // namespace

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {{{"ABC", "C:"}, ""}, {{"VRAIL", "C:"}, ""}, {{}, ""}};
  Way way = TakeWay(input, kWays);
  if (MayLeave(input)) return;
  way.answers = input;
  Files files = kFiles;
  files["VRAIL.INS"] = kFiles.at("ABC.INS");
  RunSession(files, way, {{"VRAIL.FCF", kFiles.at("ABC.FCF")}});
}

}  // namespace talven::fuzz
