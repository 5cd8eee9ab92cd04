#include "screening/ShareTable.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <string>

#include "textio/FieldInput.h"

namespace talven {
namespace {

enum Column { kIndex, kTotal, kName, kScore, kAsGiven, kScale, kM1, kM2, kBmatch, kA, kPower = kA + 6, kWavelength };

std::vector<std::string_view> SplitAtTabs(std::string_view line) {
  std::vector<std::string_view> fields;
  while (true) {
    const std::size_t tab = line.find('\t');
    fields.push_back(line.substr(0, tab));
    if (tab == std::string_view::npos) return fields;
    line.remove_prefix(tab + 1);
  }
}

/// Undoes the escapes of a name in a table.
std::string Unescaped(std::string_view text) {
  std::string name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      name += text[i];
      continue;
    }
    const char kind = text[++i];
    name += kind == 't' ? '\t' : kind == 'n' ? '\n' : kind;
  }
  return name;
}

/// The fields of one row, with the errors of its file.
class RowReader {
 public:
  RowReader(const TextInput& input, std::string_view line) : input_(input), fields_(SplitAtTabs(line)) {
    if (fields_.size() != kShareColumns.size())
      input.Fail(std::to_string(kShareColumns.size()) + " values", std::to_string(fields_.size()));
  }

  std::string_view Field(std::size_t column) const { return fields_[column]; }
  double Real(std::size_t column) const {
    const std::optional<double> value = ReadReal<double>(fields_[column]);
    if (!value) input_.Fail("a number as " + std::string(kShareColumns[column]), Quote(fields_[column]));
    return *value;
  }
  std::size_t Count(std::size_t column) const {
    const std::string_view text = fields_[column];
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 1)
      input_.Fail("a count as " + std::string(kShareColumns[column]), Quote(text));
    return value;
  }

 private:
  const TextInput& input_;
  std::vector<std::string_view> fields_;
};

CoarseRow ReadRow(const RowReader& reader, std::size_t index) {
  CoarseRow row;
  row.index = index;
  row.name = Unescaped(reader.Field(kName));
  row.score = {reader.Real(kScore), reader.Real(kScale), reader.Real(kAsGiven)};
  row.comparison = {reader.Real(kM1), reader.Real(kM2), reader.Real(kBmatch)};
  if (!reader.Field(kA).empty())
    row.lattice = Lattice{reader.Real(kA),     reader.Real(kA + 1), reader.Real(kA + 2),
                          reader.Real(kA + 3), reader.Real(kA + 4), reader.Real(kA + 5)};
  return row;
}

void TakeSettings(const RowReader& reader, ShareTable& table) {
  table.has_settings = true;
  table.power = reader.Real(kPower);
  table.options.wavelength = reader.Real(kWavelength);
  table.options.fwhm = reader.Real(kWavelength + 1);
  table.options.texture = reader.Real(kWavelength + 2) != 0.0;
}

bool AreOfOneScreening(const ShareTable& a, const ShareTable& b) {
  const bool has_same_settings = a.power == b.power && a.options.wavelength == b.options.wavelength &&
                                 a.options.fwhm == b.options.fwhm && a.options.texture == b.options.texture;
  return a.total == b.total && (!a.has_settings || !b.has_settings || has_same_settings);
}

void Add(const ShareTable& share, ShareTable& whole) {
  if (share.total == 0) return;
  if (whole.total == 0) whole.total = share.total;
  if (!AreOfOneScreening(share, whole)) throw std::invalid_argument("the tables are not shares of one screening");
  if (share.has_settings) {
    whole.has_settings = true;
    whole.power = share.power;
    whole.options = share.options;
  }
  whole.rows.insert(whole.rows.end(), share.rows.begin(), share.rows.end());
  whole.failed.insert(whole.failed.end(), share.failed.begin(), share.failed.end());
}

/// Each index from 1 to the total stands once.
void CheckIndices(const ShareTable& whole) {
  std::vector<std::size_t> indices = whole.failed;
  for (const CoarseRow& row : whole.rows) indices.push_back(row.index);
  std::ranges::sort(indices);
  for (std::size_t i = 0; i < indices.size(); ++i) {
    if (i > 0 && indices[i] == indices[i - 1])
      throw std::invalid_argument("candidate " + std::to_string(indices[i]) + " stands in the tables twice");
    if (indices[i] != i + 1) break;
  }
  if (indices.size() != whole.total || (whole.total > 0 && indices.back() != whole.total))
    throw std::invalid_argument("the tables hold " + std::to_string(indices.size()) + " of " +
                                std::to_string(whole.total) + " candidates; a share is missing");
}

}  // namespace

ShareTable ReadShareTable(TextInput& input) {
  ShareTable table;
  const std::string_view head = input.RequireLine("the head line of a table of screen --part");
  if (!std::ranges::equal(SplitAtTabs(head), kShareColumns))
    input.Fail("the head line of a table of screen --part", Quote(head));
  std::string_view line;
  while (input.ReadLine(line)) {
    if (line.empty()) continue;
    const RowReader reader(input, line);
    const std::size_t index = reader.Count(kIndex);
    const std::size_t total = reader.Count(kTotal);
    if (table.total != 0 && total != table.total) input.Fail("one total in all rows", Quote(reader.Field(kTotal)));
    table.total = total;
    if (reader.Field(kScore).empty()) {
      table.failed.push_back(index);
      continue;
    }
    table.rows.push_back(ReadRow(reader, index));
    TakeSettings(reader, table);
  }
  return table;
}

ShareTable JoinShares(const std::vector<ShareTable>& shares) {
  ShareTable whole;
  for (const ShareTable& share : shares) Add(share, whole);
  CheckIndices(whole);
  std::ranges::sort(whole.rows, {}, &CoarseRow::index);
  return whole;
}

}  // namespace talven
