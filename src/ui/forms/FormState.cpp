#include "ui/forms/FormState.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "textio/FieldFormat.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kEmptyFieldValue = -999.0;
constexpr std::size_t kIntegerCharacters = 11;

std::string ShortestText(double value) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

std::string FormatReal(double value, RealFormat format) {
  if (format.width == 0) return ShortestText(value);
  std::string text(static_cast<std::size_t>(format.width), ' ');
  FormatF(text, value, format.decimals);
  return std::string(Trim(text));
}

}  // namespace

bool IsTypableInteger(std::string_view text) {
  return text.find_first_not_of("0123456789+-") == std::string_view::npos && text.size() <= kIntegerCharacters;
}

std::optional<double> ParseFieldNumber(FieldKind kind, std::string_view text) {
  text = Trim(text);
  if (kind != FieldKind::kRealEdit) {
    const bool has_sign = text.starts_with('+') || text.starts_with('-');
    const bool is_whole = text.substr(has_sign ? 1 : 0).find_first_not_of("0123456789") == std::string_view::npos;
    if (!is_whole || text.size() > kIntegerCharacters) return std::nullopt;
  }
  return ReadReal<double>(text);
}

std::string DescribeRange(const Range& range) {
  return range.IsSet() ? ShortestText(range.low) + " to " + ShortestText(range.high) : std::string();
}

FormState::FormState(const FormSpec& spec) : spec_(&spec) {
  fields_.reserve(spec.fields.size());
  for (const FieldSpec& field : spec.fields) {
    Field& state = fields_.emplace_back();
    state.spec = &field;
    state.text = field.text;
    state.is_set = field.is_set;
    if (IsNumeric(field.kind)) state.value = ParseFieldNumber(field.kind, field.text).value_or(kEmptyFieldValue);
  }
}

const FormState::Field* FormState::Find(int id) const {
  for (const Field& field : fields_)
    if (field.spec->id == id) return &field;
  return nullptr;
}

FormState::Field* FormState::FindField(int id) {
  return const_cast<Field*>(std::as_const(*this).Find(id));
}

void FormState::Enable(int id, bool is_enabled) {
  if (Field* const field = FindField(id)) field->is_enabled = is_enabled;
}

bool FormState::IsSet(int id) const {
  const Field* const field = Find(id);
  return field != nullptr && field->is_set;
}

std::vector<int> FormState::RadioGroup(int first_id) const {
  std::vector<int> ids;
  for (const Field& field : fields_) {
    const FieldSpec& spec = *field.spec;
    if (spec.kind != FieldKind::kRadio || (ids.empty() && spec.id != first_id)) continue;
    if (spec.begins_group && !ids.empty()) break;
    ids.push_back(spec.id);
  }
  return ids;
}

std::int32_t FormState::ChosenRadio(int first_id) const {
  std::int32_t number = 0;
  for (const int id : RadioGroup(first_id)) {
    ++number;
    if (IsSet(id)) return number;
  }
  return 0;
}

double FormState::NumericValue(const Field& field) const {
  if (!field.is_edited) return field.value;
  return ParseFieldNumber(field.spec->kind, field.text).value_or(kEmptyFieldValue);
}

std::int32_t FormState::Integer(int id) const {
  const Field* const field = Find(id);
  return field == nullptr ? 0 : NearestWhole(NumericValue(*field));
}

float FormState::Real(int id) const {
  const Field* const field = Find(id);
  return field == nullptr ? 0.0F : Store(NumericValue(*field));
}

std::string_view FormState::Text(int id) const {
  const Field* const field = Find(id);
  return field == nullptr ? std::string_view() : std::string_view(field->text);
}

bool FormState::PutNumber(Field* field, double value) {
  if (field == nullptr || !IsNumeric(field->spec->kind) || !field->spec->range.Accepts(value)) return false;
  field->value = value;
  field->is_edited = false;
  return true;
}

void FormState::PutInteger(int id, std::int32_t value) {
  Field* const field = FindField(id);
  if (PutNumber(field, value)) field->text = std::to_string(value);
}

void FormState::PutReal(int id, float value, std::optional<RealFormat> format) {
  Field* const field = FindField(id);
  if (PutNumber(field, value)) field->text = FormatReal(value, format.value_or(field->spec->format));
}

std::optional<std::string> FormState::Refusal(int id, std::string_view text) const {
  const Field* const field = Find(id);
  if (field == nullptr || !IsNumeric(field->spec->kind)) return std::nullopt;
  const Range& range = field->spec->range;
  if (Trim(text).empty() && (!range.IsSet() || field->spec->text.empty())) return std::nullopt;
  const auto value = ParseFieldNumber(field->spec->kind, text);
  if (value && range.Accepts(*value) && std::isfinite(Store(*value))) return std::nullopt;
  std::string wanted = field->spec->kind == FieldKind::kRealEdit ? "a number" : "a whole number";
  if (range.IsSet()) wanted += " from " + DescribeRange(range);
  return wanted;
}

void FormState::EditText(int id, std::string_view text) {
  Field* const field = FindField(id);
  if (field == nullptr) return;
  field->text = text;
  field->is_edited = true;
}

void FormState::SetCheck(int id, bool is_set) {
  if (Field* const field = FindField(id)) field->is_set = is_set;
}

bool FormState::ChooseRadio(int first_id, std::int32_t number) {
  const std::vector<int> group = RadioGroup(first_id);
  if (number < 1 || number > static_cast<std::int32_t>(group.size())) return false;
  for (const int id : group) SetCheck(id, id == group[static_cast<std::size_t>(number - 1)]);
  return true;
}

}  // namespace talven
