// A moment as the local calendar and clock tell it, for the heads of files.
#pragma once

namespace talven {

struct CalendarDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

struct ClockTime {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

}  // namespace talven
