// Structure models, in INS files and in CIF, up to the FCF of their calculated values.
#include "crystal/ModelFromCif.h"
#include "shelx/ReadModel.h"
#include "shelx/WriteFcf.h"
#include "support/FuzzedSession.h"
#include "textio/FatalIoError.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  TextInput text("ABC.INS", std::string(input));
  try {
    const CrystalModel model = input.starts_with("data_") ? ModelFromCif(text).model : ReadModel(text).model;
    OutputText fcf;
    WriteFcf(CalculateList(model, {{1, 0, 0}, {0, -2, 3}, {-4, 1, -1}, {20, 0, 0}, {9999, -999, 9999}}, "ABC.INS"),
             model, "ABC", fcf);
  } catch (const FatalIoError&) {
    // The regular end of most inputs.
  }
}

}  // namespace talven::fuzz
