#include "patterns/PatternFormats.h"

#include <algorithm>
#include <array>
#include <new>

#include "patterns/formats/CifText.h"
#include "patterns/formats/CpiPattern.h"
#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/GsasPattern.h"
#include "patterns/formats/IngPattern.h"
#include "patterns/formats/Raw4Pattern.h"
#include "patterns/formats/Riet7Pattern.h"
#include "patterns/formats/UnscramblerTable.h"
#include "patterns/formats/UxdPattern.h"
#include "patterns/formats/XyTable.h"
#include "textio/FatalIoError.h"
#include "textio/InputFile.h"
#include "textio/LetterCase.h"
#include "textio/TextInput.h"
#ifdef TALVEN_WITH_GEMMI
#include "patterns/formats/cif/PowderCif.h"
#endif
#ifdef TALVEN_WITH_PUGIXML
#include "patterns/formats/xml/XrdmlPattern.h"
#endif
#ifdef TALVEN_WITH_LIBZIP
#include "patterns/formats/zip/BrmlPattern.h"
#include "patterns/formats/zip/RasxPattern.h"
#endif
#ifdef TALVEN_WITH_XYLIB
#include "patterns/formats/xylib/XylibPattern.h"
#endif

namespace talven {
namespace {

/// A file in memory, as readers take it.
struct Source {
  const std::string& name;
  /// Lower case, without the point.
  std::string extension;
  std::string bytes;
  const PatternReadOptions& options;

  TextInput Text() { return {name, std::move(bytes)}; }
};

/// One line of the registry. `read` is empty where this build leaves the library out.
struct Format {
  PatternKind kind;
  bool (*fits)(const Source&);
  PatternFile (*read)(Source&);
};

template <bool (*kLooksLike)(std::string_view)>
bool FitsContent(const Source& source) {
  return kLooksLike(source.bytes);
}

/// Readers of texts with one scan, and with several.
template <PatternFile (*kRead)(TextInput&)>
PatternFile ReadOneScan(Source& source) {
  TextInput text = source.Text();
  PatternFile file = kRead(text);
  ChooseScan(source.name, 1, source.options, file);
  return file;
}

template <PatternFile (*kRead)(TextInput&, const PatternReadOptions&)>
PatternFile ReadScans(Source& source) {
  TextInput text = source.Text();
  return kRead(text, source.options);
}

template <PatternFile (*kRead)(const std::string&, std::string_view, const PatternReadOptions&)>
PatternFile ReadBytes(Source& source) {
  return kRead(source.name, source.bytes, source.options);
}

bool IsZip(const Source& source) {
  return source.bytes.size() > 2 && source.bytes.starts_with("PK") && source.bytes[2] < ' ';
}

bool IsXrdml(const Source& source) {
  constexpr std::size_t kHeadSize = 65536;
  std::string_view head = std::string_view(source.bytes).substr(0, kHeadSize);
  if (head.starts_with("\xEF\xBB\xBF")) head.remove_prefix(3);
  return TrimSpace(head).starts_with('<') && head.find("<xrdMeasurements") != std::string_view::npos;
}

#ifdef TALVEN_WITH_LIBZIP
PatternFile ReadZip(Source& source) {
  const ZipArchive archive(source.name, source.bytes);
  if (HoldsRasx(archive)) return ReadRasx(source.name, archive, source.options);
  if (HoldsBrml(archive)) return ReadBrml(source.name, archive, source.options);
  FailInFile(source.name, "a zip archive of kind RASX or BRML",
             archive.Names().empty() ? "an empty one" : "one with " + Quote(archive.Names().front()));
}
#endif

#ifdef TALVEN_WITH_XYLIB
bool FitsXylib(const Source& source) {
  return FindXylibKind(source.extension, source.bytes).has_value();
}
PatternFile ReadXylib(Source& source) {
  return ReadXylibKind(source.name, *FindXylibKind(source.extension, source.bytes), source.bytes, source.options);
}
#else
/// The RAW files that come before version 4.
bool IsOldRaw(const Source& source) {
  return source.bytes.starts_with("RAW ") || source.bytes.starts_with("RAW1") || source.bytes.starts_with("RAW2");
}
#endif

bool IsAnyText(const Source&) {
  return true;
}

/// ING comes first: its title may begin like any other file, and nothing else looks like what follows on it.
const auto kFirstFormats = std::to_array<Format>({
    {{"ING", "ing", ""}, FitsContent<LooksLikeIng>, ReadOneScan<ReadIng>},
#ifdef TALVEN_WITH_LIBZIP
    {{"RASX, BRML", "rasx brml", ""}, IsZip, ReadZip},
#else
    {{"RASX, BRML", "rasx brml", "libzip and pugixml"}, IsZip, nullptr},
#endif
    {{"RAW4.00", "raw", ""}, FitsContent<LooksLikeRaw4>, ReadBytes<ReadRaw4>},
#ifdef TALVEN_WITH_XYLIB
    {{"RAW and kinds of xylib", "raw rd sd udf dat xdd dbw rit neu", ""}, FitsXylib, ReadXylib},
#else
    {{"RAW and kinds of xylib", "raw rd sd udf dat xdd dbw rit neu", "xylib"}, IsOldRaw, nullptr},
#endif
});

/// After these a file without a known kind is refused if it holds a NUL.
const auto kTextFormats = std::to_array<Format>({
#ifdef TALVEN_WITH_PUGIXML
    {{"XRDML", "xrdml xml", ""}, IsXrdml, ReadBytes<ReadXrdml>},
#else
    {{"XRDML", "xrdml xml", "pugixml"}, IsXrdml, nullptr},
#endif
    {{"UXD", "uxd", ""}, FitsContent<LooksLikeUxd>, ReadScans<ReadUxd>},
    {{"CPI", "cpi", ""}, FitsContent<LooksLikeCpi>, ReadOneScan<ReadCpi>},
    {{"GSAS FXYE and raw data", "fxye fxy gsa gsas gda raw", ""}, FitsContent<LooksLikeGsas>, ReadScans<ReadGsas>},
#ifdef TALVEN_WITH_GEMMI
    {{"powder CIF", "cif", ""}, FitsContent<LooksLikeCif>, ReadBytes<ReadPowderCif>},
#else
    {{"powder CIF", "cif", "gemmi"}, FitsContent<LooksLikeCif>, nullptr},
#endif
    {{"TXT of the Unscrambler", "txt", ""}, FitsContent<LooksLikeUnscramblerTable>, ReadOneScan<ReadUnscramblerTable>},
    {{"RIET7 DAT", "pat dat rit", ""}, FitsContent<LooksLikeRiet7>, ReadOneScan<ReadRiet7>},
    {{"XY, XYE, XYD", "xy xye xyd txt dat csv asc", ""}, IsAnyText, ReadOneScan<ReadXyTable>},
});

std::string ExtensionOf(const std::string& name) {
  const std::string extension = std::filesystem::path(name).extension().string();
  return extension.empty() ? extension : ToLower(std::string_view(extension).substr(1));
}

PatternFile ReadAs(const Format& format, Source& source) {
  if (format.read != nullptr) return format.read(source);
  FailInFile(source.name, "a kind of file that this build reads",
             std::string(format.kind.name) + " (built without " + std::string(format.kind.missing_library) + ")");
}

/// RAS and ASC: "*RAS_DATA_START", "*TYPE = Raw". Their rows would pass for those of a table.
bool IsRigakuText(std::string_view text) {
  return text.size() > 1 && text[0] == '*' && text[1] >= 'A' && text[1] <= 'Z';
}

/// Refuses what is no text, before any reader of text looks at it.
void CheckText(const Source& source) {
  constexpr std::string_view kExpected = "a pattern in a known format";
  if (source.bytes.empty()) FailInFile(source.name, kExpected, "an empty file");
  if (source.bytes.starts_with("\xFF\xFE") || source.bytes.starts_with("\xFE\xFF"))
    FailInFile(source.name, "text in UTF-8 or ASCII", "UTF-16");
  if (source.bytes.find('\0') != std::string::npos) FailInFile(source.name, kExpected, "binary data of no known kind");
  if (IsRigakuText(source.bytes))
    FailInFile(source.name, kExpected, "text of a Rigaku instrument; export it as RASX, or as XY");
  const std::string_view start = TrimSpace(std::string_view(source.bytes).substr(0, 100));
  if ((start.starts_with("<?xml") || start.starts_with("\xEF\xBB\xBF<?xml")) && !IsXrdml(source))
    FailInFile(source.name, kExpected, "XML of another kind");
}

PatternFile ReadSource(Source& source) {
  for (const Format& format : kFirstFormats)
    if (format.fits(source)) return ReadAs(format, source);
  CheckText(source);
  if (source.bytes.find('\n') == std::string::npos) std::ranges::replace(source.bytes, '\r', '\n');
  for (const Format& format : kTextFormats)
    if (format.fits(source)) return ReadAs(format, source);
  FailInFile(source.name, "a pattern in a known format", "none");
}

}  // namespace

std::vector<PatternKind> PatternKinds() {
  std::vector<PatternKind> kinds;
  for (const Format& format : kFirstFormats) kinds.push_back(format.kind);
  for (const Format& format : kTextFormats) kinds.push_back(format.kind);
  return kinds;
}

PatternFile ReadPattern(const std::string& name, std::string bytes, const PatternReadOptions& options) {
  Source source{.name = name, .extension = ExtensionOf(name), .bytes = std::move(bytes), .options = options};
  try {
    return ReadSource(source);
  } catch (const std::bad_alloc&) {
    throw FatalIoError(name + ": cannot be read: there is not enough memory");
  }
}

PatternFile ReadPatternFile(const std::filesystem::path& path, const PatternReadOptions& options) {
  InputFile file;
  file.OpenRequired(Folder(path.parent_path()), FromPath(path.filename()));
  const std::string name = file.Name();
  return ReadPattern(name, file.TakeContent(), options);
}

}  // namespace talven
