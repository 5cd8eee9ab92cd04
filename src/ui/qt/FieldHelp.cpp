#include "ui/qt/FieldHelp.h"

#include <array>

#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

struct Entry {
  int form;
  int field;
  FieldHelp help;
};

constexpr std::array kEntries = {
    Entry{kJobNameForm,
          1005,
          {"Name of the job, at most 20 characters",
           "Its files are the name with an extension: ABC.INS, ABC.HKL, ABC.ING. Letters count as they are typed, but "
           "files are found in any case. Names used before are offered as you type."}},
    Entry{kPatternForm,
          1006,
          {"Copper radiation, 1.54 Å",
           "The pattern is worked out for copper radiation, wavelength 1.54 Å, whatever the CELL line of the INS file "
           "says."}},
    Entry{kPatternForm, 1007, {"Molybdenum radiation, 0.71069 Å", "The pattern is worked out for this wavelength."}},
    Entry{
        kPatternForm, 1008, {"Another wavelength", "The pattern is worked out for the wavelength in the field below."}},
    Entry{kPatternForm,
          1013,
          {"Wavelength in Å, used with Other",
           "At first it shows the wavelength that the input file names. It counts only where Other is chosen; with Cu "
           "or Mo it is passed over."}},
    Entry{
        kPatternForm,
        1014,
        {"Step of the pattern in degrees of 2θ",
         "Distance of two points of the pattern. Peaks are a fixed number of points wide, so a larger step also means "
         "broader peaks. Angles are written with two decimals. A pattern holds 10,000 points at most."}},
    Entry{kPatternForm,
          1030,
          {"Where the pattern begins, in degrees of 2θ", "Reflections at and below this angle are left out."}},
    Entry{kPatternForm,
          1015,
          {"Sets an upper limit of 2θ",
           "Ticked, reflections beyond the angle beside it are left out. Otherwise the pattern goes up to the last "
           "reflection of the list."}},
    Entry{kPatternForm,
          1016,
          {"Where the pattern ends, in degrees of 2θ", "It counts only where the box in front of it is ticked."}},
    Entry{kPatternForm,
          1017,
          {"Broadening factor, without unit",
           "How slowly a peak falls off, counted in points: at 1 a peak is as narrow as it gets, at 10 ten times as "
           "broad. At half height a peak is 2.2 steps wide for 1, 6.8 for 5, 11.9 for 10."}},
    Entry{kPatternForm,
          1018,
          {"Lorentz-polarisation factor of a powder",
           "Multiplies the finished pattern by (1 + cos²θ) / (sin²θ cos θ), background included: the pattern rises "
           "towards low angles. Textbooks have cos²2θ in its place. Leave it off where the intensities hold that "
           "factor already."}},
    Entry{kPatternForm,
          1012,
          {"High-angle tails as long as low-angle ones",
           "Ticked, both tails of a peak are cut at the same distance; otherwise the one at high angles is cut at half "
           "of it. It falls off twice as fast in either case."}},
    Entry{kPatternForm,
          1024,
          {"Adds copies of opposite sign to a list of unique reflections",
           "Enough for monoclinic and orthorhombic crystals, but for reflections with an index 0, which may count two "
           "or four times. In tetragonal and cubic lists rows with indices interchanged stay out. Lists that are "
           "complete already are left as they are."}},
    Entry{kComparisonForm,
          1013,
          {"AngTol: peak error in degrees of 2θ", "Two peaks match if their 2θ differ by less than this."}},
    Entry{kComparisonForm,
          1016,
          {"NMF: fraction that may be without a match",
           "If a larger fraction of the reference's peaks has no partner in the sample, M1 is cut to a tenth."}},
    Entry{kComparisonForm,
          1014,
          {"SAF: fraction by which areas may differ",
           "M2 equals M1 as long as the areas of the two patterns differ by at most this fraction of the reference's; "
           "beyond it M2 is next to nothing."}},
    Entry{kComparisonForm,
          1019,
          {"T4M: matches wanted among the four strongest",
           "So many pairs must have both their peaks among the four strongest of their lists; with fewer, M1 is cut to "
           "a fifth."}},
    Entry{kComparisonForm,
          1030,
          {"Bsep: gap between bands in degrees of 2θ",
           "Neighbouring peaks that are less than this apart share a band. Any number is taken."}},
    Entry{
        kComparisonForm,
        1020,
        {"Btrs: intensity threshold of bands",
         "A peak counts for a band if it is stronger than this, on the scale on which the strongest peak of a pattern "
         "has 99000. The field starts at 10000 in each run."}},
    Entry{kComparisonForm,
          1034,
          {"Berr: tolerance of a band match in degrees of 2θ",
           "Two bands match if the distance of their centres plus that of their highest peaks is below twice this "
           "value."}},
    Entry{kComparisonForm,
          1017,
          {"Large d spacing, in Å",
           "A line of a larger spacing than this counts as one of large d. It is used where Apply or Most Int. is "
           "ticked."}},
    Entry{
        kComparisonForm,
        1012,
        {"Tests where the strongest peaks lie",
         "If the reference's strongest peak is a line of large d and the sample's is not, M1 is cut to a hundredth."}},
    Entry{
        kComparisonForm,
        1015,
        {"Judges by the lines of large d",
         "A sample without such a line, or with more than the reference has, gets a hundredth of its M1; one in which "
         "all match gets three times, 1 at most. Off again in each run."}},
    Entry{kComparisonForm,
          1018,
          {"Writes what the scores are made of", "More lines in the log and in the window. Off again in each run."}},
};

}  // namespace

FieldHelp HelpFor(int form, int field) {
  for (const Entry& entry : kEntries)
    if (entry.form == form && entry.field == field) return entry.help;
  return {};
}

ManualPlace ManualPlaceOf(int form) {
  switch (form) {
    case kComparisonForm:
      return {"comparison", "The form"};
    case kPatternForm:
      return {"desktop", "Form 4"};
    case kAbsenceForm:
      return {"desktop", "Form 5"};
    case kIndexLimitForm:
      return {"desktop", "Form 6"};
    case kUnsuitableForm:
      return {"desktop", "Form 7"};
    case kOptionForm:
      return {"desktop", "Form 3"};
    case kJobNameForm:
      return {"desktop", "Form 2"};
    default:
      return {"desktop", "The main window"};
  }
}

}  // namespace talven
