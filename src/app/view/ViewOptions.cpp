#include "app/view/ViewOptions.h"

#include <QCommandLineParser>
#include <array>
#include <utility>

namespace talven {
namespace {

constexpr int kFewestPixels = 200;
constexpr int kMostPixels = 10'000;

template <typename T, std::size_t N>
void TakeChoice(const QCommandLineParser& parser, const char* name,
                const std::array<std::pair<const char*, T>, N>& choices, T& value) {
  if (!parser.isSet(name)) return;
  QStringList names;
  for (const auto& [text, choice] : choices) {
    names << text;
    if (parser.value(name) != text) continue;
    value = choice;
    return;
  }
  throw ViewOptionsError{QString("--%1: expected %2, found '%3'").arg(name, names.join(", "), parser.value(name))};
}

std::optional<double> PositiveNumber(const QCommandLineParser& parser, const char* name) {
  if (!parser.isSet(name)) return std::nullopt;
  bool is_number = false;
  const double value = parser.value(name).toDouble(&is_number);
  if (is_number && value > 0.0 && value < 1e6) return value;
  throw ViewOptionsError{QString("--%1: expected a positive number, found '%2'").arg(name, parser.value(name))};
}

int WholeNumber(const QCommandLineParser& parser, const char* name, int usual, int least, int most) {
  if (!parser.isSet(name)) return usual;
  bool is_number = false;
  const int value = parser.value(name).toInt(&is_number);
  if (is_number && value >= least && value <= most) return value;
  throw ViewOptionsError{QString("--%1: expected a whole number from %2 to %3, found '%4'")
                             .arg(name)
                             .arg(least)
                             .arg(most)
                             .arg(parser.value(name))};
}

void DeclareOptions(QCommandLineParser& parser) {
  parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
  for (const char* const flag : {"help", "version", "pick", "peaks", "difference", "keep-alpha2"}) {
    parser.addOption(QCommandLineOption(flag));
  }
  for (const char* const option :
       {"export", "along", "up", "arrange", "width", "height", "fwhm", "threshold", "wavelength", "ranking", "row"}) {
    parser.addOption(QCommandLineOption(option, {}, "value"));
  }
}

void TakeSettings(const QCommandLineParser& parser, PlotSettings& settings) {
  using Alongs = std::array<std::pair<const char*, AlongUnit>, 3>;
  using Ups = std::array<std::pair<const char*, UpScale>, 3>;
  using Arrangements = std::array<std::pair<const char*, Arrangement>, 3>;
  TakeChoice(parser, "along", Alongs{{{"2theta", AlongUnit::kTwoTheta}, {"d", AlongUnit::kD}, {"q", AlongUnit::kQ}}},
             settings.along);
  TakeChoice(parser, "up",
             Ups{{{"linear", UpScale::kLinear}, {"sqrt", UpScale::kSquareRoot}, {"log", UpScale::kLogarithm}}},
             settings.up);
  TakeChoice(parser, "arrange",
             Arrangements{{{"measured", Arrangement::kAsMeasured},
                           {"normalised", Arrangement::kNormalised},
                           {"stacked", Arrangement::kStacked}}},
             settings.arrangement);
  settings.shows_difference = parser.isSet("difference");
}

}  // namespace

ViewOptions ParseViewOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  DeclareOptions(parser);
  if (!parser.parse(QStringList("talven-view") + arguments)) throw ViewOptionsError{parser.errorText()};
  ViewOptions options;
  options.files = parser.positionalArguments();
  if (parser.isSet("help") || parser.isSet("version")) {
    options.task = parser.isSet("help") ? ViewTask::kHelp : ViewTask::kVersion;
    return options;
  }
  TakeSettings(parser, options.settings);
  options.output = parser.value("export");
  options.size = {WholeNumber(parser, "width", options.size.width(), kFewestPixels, kMostPixels),
                  WholeNumber(parser, "height", options.size.height(), kFewestPixels, kMostPixels)};
  options.ranking = parser.value("ranking");
  options.ranking_row = WholeNumber(parser, "row", options.ranking_row, 1, 1'000'000);
  options.shows_peaks = parser.isSet("peaks");
  options.peaks.fwhm = PositiveNumber(parser, "fwhm");
  options.peaks.wavelength = PositiveNumber(parser, "wavelength");
  options.peaks.threshold = PositiveNumber(parser, "threshold").value_or(options.peaks.threshold);
  options.peaks.keep_alpha2 = parser.isSet("keep-alpha2");
  if (parser.isSet("export") && parser.isSet("pick")) {
    throw ViewOptionsError{"--export and --pick are two things: call the program twice"};
  }
  if (parser.isSet("export")) options.task = ViewTask::kExport;
  if (parser.isSet("pick")) options.task = ViewTask::kPick;
  if (options.task != ViewTask::kShow && options.files.isEmpty()) {
    throw ViewOptionsError{QString("%1: no file to read").arg(parser.isSet("pick") ? "--pick" : "--export")};
  }
  return options;
}

QString ViewUsage() {
  return "usage: talven-view [OPTION...] [JOB | FILE...]\n"
         "       talven-view --export OUTPUT [OPTION...] FILE...\n"
         "       talven-view --pick [OPTION...] FILE...\n"
         "\n"
         "Shows powder patterns: the first file, the others laid over it. JOB stands for JOB.ING in the current "
         "directory.\n"
         "\n"
         "  --export OUTPUT          writes OUTPUT (.png, .svg, .pdf; .xy for the data) and ends, without a display\n"
         "  --pick                   writes the peaks of each file to NAME.peaks.LST in the current directory and "
         "ends\n"
         "\n"
         "  --along 2theta|d|q       horizontal axis\n"
         "  --up linear|sqrt|log     vertical scale\n"
         "  --arrange measured|normalised|stacked\n"
         "  --difference             the first file minus the second, below\n"
         "  --peaks                  shows background and peaks\n"
         "  --ranking TABLE          calculated lines of a row of talven-run screen's table, below the pattern\n"
         "  --row N                  which row (1)\n"
         "  --width N --height N     size of an exported picture in pixels (1000, 600)\n"
         "\n"
         "  --threshold T            standard errors that a peak has to rise above the noise (3.5)\n"
         "  --fwhm W                 width of the peaks in degrees; measured if it is not given\n"
         "  --wavelength L           in Angstrom, for files that tell none\n"
         "  --keep-alpha2            K alpha 2 companions stay in the list\n"
         "\n"
         "  --help                   prints this text\n"
         "  --version                prints the version\n"
         "\n"
         "Exit code: 0, 1 where a file cannot be read or written, 2 where the command line is wrong or no display is "
         "there.\n"
         "\n"
         "The manual is in share/doc/talven of the installation (html/plot.html or plot.md), and in docs of the "
         "source.\n";
}

}  // namespace talven
