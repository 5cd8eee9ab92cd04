#include <gtest/gtest.h>

#include <QTest>

#include "support/qt/UserScript.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/qt/FormDialog.h"

namespace talven::test {
namespace {

TEST(FormDialog, Shots) {
  for (int id = 101; id <= 108; ++id) {
    FormState state(*FindForm(id));
    FormDialog dialog(
        state, [] {}, nullptr);
    dialog.show();
    SavePicture(dialog, "form-" + dialog.objectName());
  }
}

}  // namespace
}  // namespace talven::test
