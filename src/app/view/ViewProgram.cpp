#include "app/view/ViewProgram.h"

#include <QApplication>
#include <QFileInfo>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ostream>

#include "app/view/ViewOptions.h"
#include "app/view/ViewWindow.h"
#include "patterns/PatternFormats.h"
#include "peaks/PeakListFile.h"
#include "textio/FatalIoError.h"
#include "textio/OutputFile.h"
#include "ui/Toolkit.h"
#include "ui/plot/PlotWidget.h"
#include "ui/qt/AppIcon.h"

namespace talven {
namespace {

/// While the application starts. Qt's only fatal message then is that it has no window system.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  std::fputs("talven-view: no display can be opened; --export and --pick need none\n", stderr);
  std::_Exit(kExitRefused);
}

/// While a picture is drawn off screen, where Qt warns of what a window could do there.
void TellFaultsOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "talven-view: %s\n", qPrintable(text));
}

std::filesystem::path PathOf(const QString& name) {
  return std::filesystem::path(name.toStdU16String());
}

/// The file that an argument means: itself, or that of a job.
QString FileOf(const QString& argument) {
  if (QFileInfo(argument).isFile()) return argument;
  const auto pattern = Folder().Find(argument.toStdString() + ".ING");
  if (pattern) return QString::fromStdU16String(pattern->u16string());
  throw FatalIoError(argument.toStdString() + ": there is no file of this name, and no " + argument.toStdString() +
                     ".ING in the current directory");
}

void PickFile(const QString& path, PeakOptions options, std::ostream& output) {
  const PatternFile file = ReadPatternFile(PathOf(path));
  if (file.pattern.wavelength) options.wavelength = file.pattern.wavelength;
  const PickedPeaks picked = PickPeaks(file.pattern, options);
  const std::string name = QFileInfo(path).completeBaseName().toStdString() + std::string(kPeakListSuffix);
  const Folder folder;
  folder.Delete(name);  // Should it be a link, what it points to stays.
  OutputFile list;
  list.Open(folder, name);
  WritePeakList(picked.peaks, picked.wavelength, list);
  list.Close();
  output << name << ": " << picked.peaks.size() << " peaks\n";
  for (const std::string& notice : file.notices) output << "  " << notice << '\n';
  for (const std::string& notice : picked.notices) output << "  " << notice << '\n';
}

/// Where a file cannot be read the others are done nevertheless.
int PickFiles(const ViewOptions& options, std::ostream& output, std::ostream& messages) {
  int exit_code = kExitNormal;
  for (const QString& file : options.files) {
    try {
      PickFile(FileOf(file), options.peaks, output);
    } catch (const FatalIoError& error) {
      messages << "talven-view: " << error.what() << '\n';
      exit_code = kExitFatalIo;
    }
  }
  return output.flush() ? exit_code : kExitFatalIo;
}

bool Load(PlotWidget& plot, const ViewOptions& options, std::ostream& messages) {
  for (const QString& argument : options.files) {
    if (plot.OverlayFile(FileOf(argument))) continue;
    messages << "talven-view: " << plot.Message().toStdString() << '\n';
    return false;
  }
  if (!(options.settings == PlotSettings{})) plot.ApplySettings(options.settings);
  if (options.peaks.wavelength) plot.GiveWavelength(*options.peaks.wavelength);
  if (options.shows_peaks) plot.PickPeaksWith(options.peaks);
  if (options.ranking.isEmpty() || plot.OpenRanking(options.ranking, options.ranking_row)) return true;
  messages << "talven-view: " << plot.Message().toStdString() << '\n';
  return false;
}

int Export(const ViewOptions& options, std::ostream& messages) {
  PlotWidget plot;
  plot.resize(options.size);
  if (!Load(plot, options, messages)) return kExitFatalIo;
  if (plot.ExportTo(options.output, options.size)) return kExitNormal;
  messages << "talven-view: " << plot.Message().toStdString() << '\n';
  return kExitFatalIo;
}

int Show(const ViewOptions& options, std::ostream& messages) {
  ViewWindow window;
  if (!Load(window.Plot(), options, messages)) return kExitFatalIo;
  window.show();
  return QApplication::exec();
}

int RunWithQt(const ViewOptions& options, char** argv, std::ostream& messages) {
  if (options.task == ViewTask::kExport) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  int argument_count = 1;
  const QApplication application(argument_count, argv);
  qInstallMessageHandler(options.task == ViewTask::kExport ? TellFaultsOnly : usual);
  // The window system switches on the user's locale. Numbers keep their point.
  std::setlocale(LC_NUMERIC, "C");
  QGuiApplication::setDesktopFileName("talven-view");
  QGuiApplication::setWindowIcon(AppIcon());
  return options.task == ViewTask::kExport ? Export(options, messages) : Show(options, messages);
}

int RunTask(const ViewOptions& options, char** argv, std::ostream& output, std::ostream& messages) {
  switch (options.task) {
    case ViewTask::kHelp:
      output << ViewUsage().toStdString();
      break;
    case ViewTask::kVersion:
      output << "talven-view " TALVEN_VERSION "\n";
      break;
    case ViewTask::kPick:
      return PickFiles(options, output, messages);
    default:
      return RunWithQt(options, argv, messages);
  }
  return output.flush() ? kExitNormal : kExitFatalIo;
}

}  // namespace

int RunView(const std::vector<std::string>& arguments, char** argv, std::ostream& output, std::ostream& messages) {
  QStringList words;
  for (const std::string& argument : arguments) words.append(QString::fromStdString(argument));
  words.removeFirst();
  try {
    return RunTask(ParseViewOptions(words), argv, output, messages);
  } catch (const ViewOptionsError& error) {
    messages << "talven-view: " << error.text.toStdString() << '\n' << ViewUsage().toStdString();
    return kExitRefused;
  } catch (const FatalIoError& error) {
    messages << "talven-view: " << error.what() << '\n';
    return kExitFatalIo;
  }
}

}  // namespace talven
