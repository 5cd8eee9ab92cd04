#include "ui/console/FormDialogue.h"

#include <algorithm>
#include <ostream>

#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

std::string PresentValue(const FormState& form, const FormState::Field& field) {
  const FieldSpec& spec = *field.spec;
  switch (spec.kind) {
    case FieldKind::kCheck:
      return field.is_set ? "on" : "off";
    case FieldKind::kRadio: {
      if (!spec.begins_group) return field.is_set ? "chosen" : "";
      const std::string count = std::to_string(form.RadioGroup(spec.id).size());
      return std::to_string(form.ChosenRadio(spec.id)) + " (1 to " + count + ")" + (field.is_set ? " chosen" : "");
    }
    case FieldKind::kRealEdit:
    case FieldKind::kIntegerEdit:
    case FieldKind::kIntegerSpin:
      return field.text + (spec.range.IsSet() ? " (" + DescribeRange(spec.range) + ")" : "");
    case FieldKind::kEdit:
      return field.text;
    default:
      return {};
  }
}

FormAnswer Refused(std::string reason) {
  return {.button = {}, .refusal = std::move(reason)};
}

/// A number of digits alone.
std::optional<std::int32_t> ReadNumber(std::string_view text) {
  text = Trim(text);
  if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return ReadI(text);
}

FormAnswer AnswerCheck(FormState& form, int id, std::string_view value) {
  if (value != "on" && value != "off") return Refused("expected on or off");
  form.SetCheck(id, value == "on");
  return {};
}

FormAnswer AnswerRadio(FormState& form, const FieldSpec& spec, std::string_view value) {
  const std::size_t count = form.RadioGroup(spec.id).size();
  if (!spec.begins_group) return Refused("not the first button of its group: choose by the first one's id");
  const auto number = ReadNumber(value);
  if (!number || !form.ChooseRadio(spec.id, *number))
    return Refused("expected the number of a button, 1 to " + std::to_string(count));
  return {};
}

FormAnswer AnswerField(FormState& form, int id, std::string_view value) {
  const FormState::Field* const field = form.Find(id);
  if (field == nullptr) return Refused("the form has no such field: expected one of those shown");
  if (!field->is_enabled) return Refused("the field is disabled: expected another one");
  const FieldSpec& spec = *field->spec;
  switch (spec.kind) {
    case FieldKind::kStatic:
    case FieldKind::kGroupBox:
    case FieldKind::kButton:
      return Refused("the field can't be filled: expected another one");
    case FieldKind::kCheck:
      return AnswerCheck(form, id, Trim(value));
    case FieldKind::kRadio:
      return AnswerRadio(form, spec, value);
    default:
      break;
  }
  if (const auto wanted = form.Refusal(id, value)) return Refused("expected " + *wanted);
  form.EditText(id, value);
  return {};
}

/// The field that an answer of the kind ID=VALUE names; nothing for another line.
std::optional<std::int32_t> FieldOf(std::string_view answer) {
  const std::size_t equals = answer.find('=');
  return equals == std::string_view::npos ? std::nullopt : ReadNumber(answer.substr(0, equals));
}

FormAnswer PressButton(const FormState& form, int id) {
  if (form.Find(id) == nullptr) return Refused("the form has no such button: expected ok or ID=VALUE");
  return {.button = id, .refusal = {}};
}

}  // namespace

void PrintForm(const FormState& form, std::ostream& messages) {
  // The messages of the process go out write by write, so the form is put together first.
  std::string lines = "[form " + std::to_string(form.Spec().id) + "]\n";
  for (const FormState::Field& field : form.Fields()) {
    const FieldSpec& spec = *field.spec;
    lines.append("  ").append(std::to_string(spec.id)).append(" ").append(spec.label.empty() ? spec.text : spec.label);
    const std::string value = PresentValue(form, field);
    if (!value.empty()) lines.append(": ").append(value);
    if (!field.is_enabled) lines.append(" (disabled)");
    lines.append("\n");
  }
  messages << lines << std::flush;
}

FormAnswer AnswerForm(FormState& form, std::string_view answer) {
  const std::string_view word = Trim(answer);
  if (word == "ok") return PressButton(form, kOkButton);
  if (word == "exit") return PressButton(form, kExitButton);
  const auto id = FieldOf(answer);
  if (!id) return Refused("expected ID=VALUE, ok or exit");
  return AnswerField(form, *id, answer.substr(answer.find('=') + 1));
}

bool FillOnlyText(FormState& form, std::string_view line) {
  const std::string_view word = Trim(line);
  const auto is_text = [](const FormState::Field& field) { return field.spec->kind == FieldKind::kEdit; };
  if (word == "ok" || word == "exit" || FieldOf(line)) return false;
  if (std::ranges::count_if(form.Fields(), is_text) != 1) return false;
  form.EditText(std::ranges::find_if(form.Fields(), is_text)->spec->id, line);
  return true;
}

std::string FormHelp(const FormState& form) {
  std::string number, text, check, group;
  for (const FormState::Field& field : form.Fields()) {
    const FieldSpec& spec = *field.spec;
    const std::string id = std::to_string(spec.id) + "=";
    if (!field.is_enabled) continue;
    if (IsNumeric(spec.kind) && number.empty()) number = "[help] ID=VALUE fills a field, as " + id + field.text + "\n";
    if (spec.kind == FieldKind::kEdit)
      text = "[help] ID=VALUE fills a field, as " + id + "UREA; the value alone does so too, and presses ok\n";
    if (spec.kind == FieldKind::kCheck && check.empty())
      check = "[help] ID=on or ID=off sets a check box, as " + id + "on\n";
    if (spec.begins_group)
      group = "[help] ID=N chooses the Nth button of the group that begins there, as " + id + "2\n";
  }
  const bool has_exit = form.Find(kExitButton) != nullptr;
  return text + number + check + group + "[help] ok goes on" + (has_exit ? ", exit leaves\n" : "\n");
}

int ButtonAtEnd(const FormState& form) {
  return form.Find(kExitButton) != nullptr ? kExitButton : kOkButton;
}

}  // namespace talven
