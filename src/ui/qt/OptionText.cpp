#include "ui/qt/OptionText.h"

#include <QRegularExpression>

#include "ui/forms/FormFields.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

constexpr int kIngToCif = 1008;
constexpr int kReformat = 1009;
constexpr int kIngToText = 1031;

}  // namespace

RunOption OptionOf(const FormState& options) {
  if (options.IsSet(option_field::kCompare)) return {.text = "Comparing patterns", .is_comparison = true};
  for (const int id : options.RadioGroup(option_field::kOption)) {
    if (!options.IsSet(id)) continue;
    QString text = ToQString(options.Find(id)->spec->text);
    text.replace(QRegularExpression(" *>+ *"), " \u2192 ");
    return {.text = text, .reads_pattern = id == kIngToCif || id == kReformat || id == kIngToText};
  }
  return {};
}

}  // namespace talven
