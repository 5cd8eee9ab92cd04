// A loaded form: the values of its fields and the rules of putting, getting and refusing, without any toolkit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/forms/FormSpec.h"

namespace talven {

/// The state of one form from its loading, which gives every field its catalogue value, to its unloading. The program
/// puts and gets values; a user edits them through the toolkit that draws the form.
///
/// A numeric field holds a 64-bit value beside its text. What the program gets is that value until the user edits the
/// field, and from then on the number that the text says. An empty field gives -999.
class FormState {
 public:
  struct Field {
    const FieldSpec* spec = nullptr;
    std::string text;
    double value = 0.0;
    bool is_edited = false;
    bool is_set = false;
    bool is_enabled = true;
  };

  explicit FormState(const FormSpec& spec);
  const FormSpec& Spec() const { return *spec_; }
  const std::vector<Field>& Fields() const { return fields_; }
  const Field* Find(int id) const;

  // The program's side. An unknown id has no effect; getting one gives 0 or nothing.

  void Enable(int id, bool is_enabled);
  bool IsSet(int id) const;
  /// Number of the chosen button of the radio group that begins at an id, from 1; 0 if none is.
  std::int32_t ChosenRadio(int first_id) const;
  std::int32_t Integer(int id) const;
  float Real(int id) const;
  std::string_view Text(int id) const;
  /// Stores a value and its text. A value outside the field's range is not stored, and the field keeps what it has.
  void PutInteger(int id, std::int32_t value);
  void PutReal(int id, float value, std::optional<RealFormat> format = {});

  // The user's side.

  /// Why a text can't stay in a field, as "a number from 0.001 to 5"; nothing if it can.
  std::optional<std::string> Refusal(int id, std::string_view text) const;
  void EditText(int id, std::string_view text);
  void SetCheck(int id, bool is_set);
  /// Sets the Nth button of the group that begins at an id, from 1. False if the group has no such button.
  bool ChooseRadio(int first_id, std::int32_t number);
  /// Ids of the radio group that begins at an id, in order.
  std::vector<int> RadioGroup(int first_id) const;

 private:
  Field* FindField(int id);
  double NumericValue(const Field& field) const;
  bool PutNumber(Field* field, double value);

  const FormSpec* spec_;
  std::vector<Field> fields_;
};

/// What can be typed into an integer field: digits and signs, up to 11 characters.
bool IsTypableInteger(std::string_view text);

/// The number in the text of a real or integer field, blanks around it ignored; nothing if it is none. An integer field
/// takes one sign and digits, up to 11 characters.
std::optional<double> ParseFieldNumber(FieldKind kind, std::string_view text);

/// A range as a hint tells it: "0.001 to 5"; empty where there is none.
std::string DescribeRange(const Range& range);

}  // namespace talven
