// The thread's locale as C reads numbers in programs: xylib reads them by the locale, and a desktop sets its user's.
#pragma once

#include <clocale>

namespace talven {

class ScopedCLocale {
 public:
  ScopedCLocale() : c_locale_(newlocale(LC_ALL_MASK, "C", nullptr)), before_(uselocale(c_locale_)) {}
  ~ScopedCLocale() {
    uselocale(before_);
    freelocale(c_locale_);
  }
  ScopedCLocale(const ScopedCLocale&) = delete;
  ScopedCLocale& operator=(const ScopedCLocale&) = delete;

 private:
  locale_t c_locale_;
  locale_t before_;
};

}  // namespace talven
