#include "ui/Toolkit.h"

#include <ctime>
#include <filesystem>
#include <system_error>

#include "textio/FileNames.h"
#include "textio/FixedText.h"
#include "textio/Folder.h"
#include "ui/Process.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormState.h"

namespace talven {
namespace {

constexpr std::size_t kArgumentLength = 80;

std::tm LocalTime() {
  const std::time_t now = std::time(nullptr);
  const std::tm* const local = std::localtime(&now);
  return local != nullptr ? *local : std::tm{};
}

}  // namespace

std::vector<MessageButton> MessageButtons(MessageType type) {
  switch (type) {
    case MessageType::kOkCancel:
      return {{"OK", 1}, {"Cancel", 0}};
    case MessageType::kRetryCancel:
      return {{"Retry", 1}, {"Cancel", 0}};
    case MessageType::kYesNo:
      return {{"Yes", 1}, {"No", 2}};
    case MessageType::kYesNoCancel:
      return {{"Yes", 1}, {"No", 2}, {"Cancel", 0}};
    case MessageType::kAbortRetryIgnore:
      return {{"Abort", 2}, {"Retry", 1}, {"Ignore", 0}};
    case MessageType::kOk:
      break;
  }
  return {{"OK", 1}};
}

Toolkit::Toolkit(const std::vector<std::string>& arguments) : arguments_(arguments) {}

Toolkit::~Toolkit() = default;

FormState* Toolkit::Find(int id) {
  for (FormState& form : forms_)
    if (form.Spec().id == id) return &form;
  return nullptr;
}

void Toolkit::WDialogLoad(int id) {
  const FormSpec* const spec = FindForm(id);
  if (spec == nullptr) return;
  if (FormState* const loaded = Find(id)) {
    *loaded = FormState(*spec);
  } else {
    forms_.emplace_back(*spec);
  }
  current_form_ = id;
}

void Toolkit::WDialogSelect(int id) {
  if (Find(id) != nullptr) current_form_ = id;
}

void Toolkit::WDialogShow(int /*x*/, int /*y*/, int /*focus_field*/, std::optional<int> mode) {
  // Every form of this program is shown centred and without a special focus field.
  FormState* const form = Current();
  if (form == nullptr) return;
  if (mode == kModal) {
    exit_button_ = RunForm(*form);
  } else {
    ShowForm(*form);
  }
}

void Toolkit::WDialogUnload(int id) {
  const FormState* const form = Find(id);
  if (form == nullptr) return;
  HideForm(*form);
  forms_.remove_if([id](const FormState& loaded) { return loaded.Spec().id == id; });
  current_form_ = 0;
}

void Toolkit::WDialogFieldState(int field, int state) {
  if (FormState* const form = Current()) form->Enable(field, state == 1);
}

std::int32_t Toolkit::WDialogGetCheckBox(int field) const {
  const FormState* const form = Current();
  return form != nullptr && form->IsSet(field) ? 1 : 0;
}

std::int32_t Toolkit::WDialogGetRadioButton(int first_field) const {
  const FormState* const form = Current();
  return form == nullptr ? 0 : form->ChosenRadio(first_field);
}

std::int32_t Toolkit::WDialogGetInteger(int field) const {
  const FormState* const form = Current();
  return form == nullptr ? 0 : form->Integer(field);
}

float Toolkit::WDialogGetReal(int field) const {
  const FormState* const form = Current();
  return form == nullptr ? 0.0F : form->Real(field);
}

std::string Toolkit::WDialogGetString(int field) const {
  const FormState* const form = Current();
  return form == nullptr ? std::string() : std::string(form->Text(field));
}

std::int32_t Toolkit::WDialogGetStringLength(int field) const {
  return static_cast<std::int32_t>(TrimRight(WDialogGetString(field)).size());
}

void Toolkit::WDialogPutInteger(int field, std::int32_t value) {
  if (FormState* const form = Current()) form->PutInteger(field, value);
}

void Toolkit::WDialogPutReal(int field, float value, std::optional<RealFormat> format) {
  if (FormState* const form = Current()) form->PutReal(field, value, format);
}

void Toolkit::WMessageBox(const Message& message) {
  outcome_ = AskMessage(message);
}

void Toolkit::WSelectFile(std::string_view filter, int flags, std::string& name, std::string_view title) {
  const auto chosen = AskFile({filter, name, std::string(title)});
  outcome_ = chosen ? 1 : 0;
  if (chosen) name = *chosen;
  std::error_code error;
  std::filesystem::path current = std::filesystem::current_path(error);
  if (chosen && (flags & kKeepDirectory) != 0) {
    const std::filesystem::path directory = ToPath(name).parent_path();
    if (directory != current) {
      std::filesystem::current_path(directory, error);
      current = std::filesystem::current_path(error);
    }
  }
  ShowDirectory(FromPath(current));
}

int Toolkit::WDialogQuery(int what) const {
  switch (what) {
    case kExitButtonQuery:
      return exit_button_;
    case kCurrentDialogQuery:
      return current_form_;
    case kOutcomeQuery:
      return outcome_;
    default:
      return 0;
  }
}

std::string Toolkit::IOsArgument(int number) const {
  if (number < 0 || static_cast<std::size_t>(number) >= arguments_.size()) return {};
  return arguments_[static_cast<std::size_t>(number)].substr(0, kArgumentLength);
}

std::string Toolkit::IOsDirName() const {
  std::error_code error;
  return FromPath(std::filesystem::current_path(error));
}

void Toolkit::IOsDirChange(std::string_view directory) {
  std::error_code error;
  if (const auto path = Folder().Find(TrimRight(directory))) std::filesystem::current_path(*path, error);
}

CalendarDate Toolkit::IOsDate() const {
  const std::tm now = LocalTime();
  return {now.tm_year + 1900, now.tm_mon + 1, now.tm_mday};
}

ClockTime Toolkit::IOsTime() const {
  const std::tm now = LocalTime();
  return {now.tm_hour, now.tm_min, now.tm_sec};
}

CommandLookup Toolkit::LookUp(std::string_view command) const {
  return LookUpCommand(command, arguments_.empty() ? std::string_view() : arguments_.front());
}

CommandLookup Toolkit::LookUpAndTell(std::string_view command) {
  CommandLookup lookup = LookUp(command);
  if (lookup.command) {
    TellOfProgram("starting " + lookup.command->program + lookup.command->arguments);
    return lookup;
  }
  std::string text = "none found for " + std::string(command);
  for (const std::string& path : lookup.looked_at)
    text.append(path == lookup.looked_at.front() ? "; looked at " : ", ").append(path);
  TellOfProgram(text);
  return lookup;
}

int Toolkit::IOsExecute(std::string_view command) {
  WindowClose();
  const CommandLookup lookup = LookUp(command);
  if (lookup.command && lookup.needs_display && !HasDisplay()) {
    TellOfProgram("not started, for there is no display: " + lookup.command->program);
    return kExitNormal;
  }
  if (lookup.command) TellOfProgram("starting " + lookup.command->program + lookup.command->arguments);
  if (lookup.command && StartDetached(*lookup.command)) return kExitNormal;
  WMessageBox({.icon = MessageIcon::kStop, .text = "Failed to execute program", .title = " "});
  return kExitRefused;
}

}  // namespace talven
