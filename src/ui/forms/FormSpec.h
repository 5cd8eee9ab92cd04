// What a form is made of: the types of the form catalogue.
#pragma once

#include <span>
#include <string_view>

namespace talven {

enum class FieldKind {
  kStatic,
  kEdit,
  kGroupBox,
  kButton,
  kCheck,
  kRadio,
  kRealEdit,
  kIntegerEdit,
  kIntegerSpin,
};

constexpr bool IsNumeric(FieldKind kind) {
  return kind >= FieldKind::kRealEdit;
}

/// Position and size in dialog units of an 8-point font.
struct Geometry {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

/// Bounds of a numeric field, both included. A lower bound above the upper one accepts any value.
struct Range {
  double low = 1.0;
  double high = 0.0;

  constexpr bool IsSet() const { return low <= high; }
  constexpr bool Accepts(double value) const { return !IsSet() || (value >= low && value <= high); }
};

/// The `Fw.d` in which a real field shows its value.
struct RealFormat {
  int width = 0;
  int decimals = 0;
};

struct FieldSpec {
  int id = 0;
  FieldKind kind = FieldKind::kStatic;
  /// Caption, or the starting text of a field that can be typed into.
  std::string_view text;
  Geometry geometry;
  /// State of a check box or radio button when the form is loaded.
  bool is_set = false;
  /// Set at the first radio button of a group, which runs on in table order.
  bool begins_group = false;
  /// What a numeric or text field is called, where its own text is its value.
  std::string_view label = {};
  Range range = {};
  RealFormat format = {};
};

/// A fixed-size form. Its title bar shows the id less 100; `OK` is its default button.
struct FormSpec {
  int id = 0;
  int width = 0;
  int height = 0;
  std::span<const FieldSpec> fields;

  constexpr const FieldSpec* Find(int field_id) const {
    for (const FieldSpec& field : fields)
      if (field.id == field_id) return &field;
    return nullptr;
  }
};

/// Ids that mean the same on every form.
inline constexpr int kOkButton = 1;
inline constexpr int kExitButton = 2;

}  // namespace talven
