#include "app/run/ConvertCommand.h"

#include <algorithm>

#include "app/run/FileCommand.h"
#include "app/run/OptionText.h"
#include "app/run/PatternInput.h"
#include "app/run/PatternRow.h"
#include "patterns/AscSpectrum.h"
#include "patterns/SmallCif.h"
#include "patterns/UnscramblerTxt.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

constexpr std::string_view kAsc = "asc";
constexpr const char* kFormatNames = "ing, cif, cpi, xy, xye, pat, txt, asc, fxye or xrdml";

/// The CIF of option 3. Throws FatalIoError.
void WriteClassicCif(TextInput& ing, TextOutput& cif) {
  const IngHeader header = ReadIngHeader(ing);
  const IngRows read = ReadIngRows(ing, kCifRows, header);
  if (read.error) throw FatalIoError(*read.error);
  WriteSmallCif(cif, header, read.rows);
}

/// The TXT of option 8. Throws FatalIoError.
void WriteClassicTxt(TextInput& ing, TextOutput& txt) {
  const IngHeader header = ReadIngHeader(ing);
  const std::int32_t count = CountIngRows(kTxtRows, header);
  if (count > kLargestTxtPointCount) throw FatalIoError("30,000 point limit of a TXT file");
  if (count < 1) throw FatalIoError("no points for a TXT file");
  const IngRows read = ReadIngRows(ing, kTxtRows, header);
  if (read.error) throw FatalIoError(*read.error);
  WriteUnscramblerTxt(txt, MakeUnscramblerTable(read.rows));
}

class ConvertCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {"convert", "any pattern to other formats",
            "Kinds are told by content, then by extension. CIF, CPI and PAT get the heads that other programs read\n"
            "right; --classic writes CIF and TXT as options 3 and 8 do. asc is an ASCII spectrum with its strongest\n"
            "point at 2."};
  }
  BatchFeatures Features() const override { return {.files_help = "patterns of any kind"}; }
  void AddOptions(CLI::App& app) override {
    AddOption(
        app, "--to", "LIST", [this](const std::string& text) { TakeFormats(text); },
        std::string("formats to write, with commas between: ") + kFormatNames)
        ->required();
    AddSwitch(app, "--classic", is_classic_, "writes cif and txt with the heads of options 3 and 8");
    AddPatternInputOptions(app, "--wavelength", input_options_);
  }
  ColumnNames TableColumns() const override { return ConversionColumns(); }

 private:
  void TakeFormats(const std::string& text) {
    formats_ = ListOption("--to", text);
    for (const std::string& name : formats_)
      if (name != kAsc && !FindPatternFormat(name)) RefuseOption("--to", kFormatNames, name);
  }

  std::vector<std::string> OutputNames(const InputPath& input) const override {
    std::vector<std::string> names;
    for (const std::string& format : formats_) names.push_back(input.Stem() + "." + Extension(format));
    return names;
  }

  /// As the programs of the suite write them: upper case for the kinds that they know.
  static std::string Extension(const std::string& format) {
    if (format == "xye" || format == "fxye" || format == "xrdml") return format;
    std::string extension = format;
    std::ranges::transform(extension, extension.begin(), [](char c) { return static_cast<char>(c - 0x20); });
    return extension;
  }

  FileResult Work(const PlannedInput& planned) const override {
    const PatternFile file = ReadInputPattern(planned.input, input_options_);
    FileResult result;
    result.notices = file.notices;
    for (const std::string& format : formats_) {
      result.outputs.push_back(std::make_unique<OutputText>());
      Write(format, planned.input, file, *result.outputs.back());
      const auto known = FindPatternFormat(format);
      if (known && !HoldsAngles(*known, file.pattern))
        result.notices.push_back(format + ": the angles were written as even steps, for its head has no others.");
    }
    result.row = ConversionRow(planned, file.format, file.pattern.PointCount(), file.pattern.wavelength);
    return result;
  }

  void Write(const std::string& format, const InputPath& input, const PatternFile& file, TextOutput& output) const {
    const bool is_by_ing = format == kAsc || (is_classic_ && (format == "cif" || format == "txt"));
    if (!is_by_ing) return WritePatternAs(*FindPatternFormat(format), file.pattern, {input.HeadName(), {}}, output);
    TextInput ing(input.Name(), IngTextOf(input, file, input_options_));
    if (format == kAsc) return WriteAscSpectrum(output, ReadIngAsSpectrum(ing));
    if (format == "cif") return WriteClassicCif(ing, output);
    WriteClassicTxt(ing, output);
  }

  std::vector<std::string> formats_;
  bool is_classic_ = false;
  PatternInputOptions input_options_;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeConvertCommand() {
  return std::make_unique<ConvertCommand>();
}

}  // namespace talven
