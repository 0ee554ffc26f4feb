// Date sections of Format. Names and the locale-dependent fields follow a fixed en-US-like
// locale: English month and day names, "/" as date and ":" as time separator, AM/PM, short
// date m/d/yyyy, long date "dddd, mmmm d, yyyy", long time h:nn:ss AM/PM. Weeks start on
// Sunday and week 1 is the week holding 1 January.
#include <cmath>

#include "base/format_pattern.h"

namespace korvane::conv::detail {
namespace {

const char* const kMonths[] = {"January",   "February", "March",    "April",
                               "May",       "June",     "July",     "August",
                               "September", "October",  "November", "December"};
const char* const kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                             "Thursday", "Friday", "Saturday"};

std::string twoDigits(int v) {
  std::string s = std::to_string(v);
  return s.size() < 2 ? "0" + s : s;
}

int twelveHour(int h) { return h % 12 == 0 ? 12 : h % 12; }
const char* ampm(const DateParts& p) { return p.hour < 12 ? "AM" : "PM"; }

std::string shortDate(const DateParts& p) {
  return std::to_string(p.month) + "/" + std::to_string(p.day) + "/" + std::to_string(p.year);
}

std::string longTime(const DateParts& p) {
  return std::to_string(twelveHour(p.hour)) + ":" + twoDigits(p.minute) + ":" +
         twoDigits(p.second) + " " + ampm(p);
}

// The general date: the date alone for a whole serial, the time alone below one day.
std::string generalDate(const DateParts& p, double serial) {
  bool hasTime = p.hour != 0 || p.minute != 0 || p.second != 0;
  if (std::trunc(serial) == 0) return longTime(p);
  return hasTime ? shortDate(p) + " " + longTime(p) : shortDate(p);
}

std::string field(const Token& t, const DateParts& p, double serial) {
  switch (t.field) {
    case DateField::Day:
      return std::to_string(p.day);
    case DateField::Day0:
      return twoDigits(p.day);
    case DateField::DayAbbrev:
      return std::string(kDays[p.dayOfWeek], 3);
    case DateField::DayName:
      return kDays[p.dayOfWeek];
    case DateField::ShortDate:
      return shortDate(p);
    case DateField::LongDate:
      return std::string(kDays[p.dayOfWeek]) + ", " + kMonths[p.month - 1] + " " +
             std::to_string(p.day) + ", " + std::to_string(p.year);
    case DateField::Weekday:
      return std::to_string(p.dayOfWeek + 1);
    case DateField::WeekOfYear: {
      int jan1 = ((p.dayOfWeek - (p.dayOfYear - 1)) % 7 + 7) % 7;
      return std::to_string((p.dayOfYear - 1 + jan1) / 7 + 1);
    }
    case DateField::Month:
      return std::to_string(p.month);
    case DateField::Month0:
      return twoDigits(p.month);
    case DateField::MonthAbbrev:
      return std::string(kMonths[p.month - 1], 3);
    case DateField::MonthName:
      return kMonths[p.month - 1];
    case DateField::Quarter:
      return std::to_string((p.month - 1) / 3 + 1);
    case DateField::DayOfYear:
      return std::to_string(p.dayOfYear);
    case DateField::Year2:
      return twoDigits(p.year % 100);
    case DateField::Year4:
      return std::to_string(p.year);
    case DateField::Hour:
      return std::to_string(t.twelveHour ? twelveHour(p.hour) : p.hour);
    case DateField::Hour0:
      return twoDigits(t.twelveHour ? twelveHour(p.hour) : p.hour);
    case DateField::Minute:
      return std::to_string(p.minute);
    case DateField::Minute0:
      return twoDigits(p.minute);
    case DateField::Second:
      return std::to_string(p.second);
    case DateField::Second0:
      return twoDigits(p.second);
    case DateField::AmPmUpper:
    case DateField::AmPmLocale:
      return ampm(p);
    case DateField::AmPmLower:
      return p.hour < 12 ? "am" : "pm";
    case DateField::APUpper:
      return p.hour < 12 ? "A" : "P";
    case DateField::APLower:
      return p.hour < 12 ? "a" : "p";
    case DateField::DateSeparator:
      return "/";
    case DateField::TimeSeparator:
      return ":";
    case DateField::General:
      return generalDate(p, serial);
    case DateField::LongTime:
      return longTime(p);
  }
  return {};
}

}  // namespace

std::string formatDateSection(const Section& section, const DateParts& parts, double serial) {
  std::string out;
  for (const Token& t : section.tokens) {
    if (t.kind == TokenKind::DateField)
      out += field(t, parts, serial);
    else if (t.kind == TokenKind::Literal)
      out += t.text;
  }
  return out;
}

}  // namespace korvane::conv::detail
