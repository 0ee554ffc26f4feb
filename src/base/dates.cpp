// Date serials: calendar arithmetic, date-like texts, the clock and the date/time functions.
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>

#include "base/conv_detail.h"

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace korvane::conv {

namespace detail {

long long daySerial(int year, int month, int day) {
  // Days from 1970-01-01 of a proleptic Gregorian date (era-based, exact for all years).
  long long y = year - (month <= 2 ? 1 : 0);
  long long era = (y >= 0 ? y : y - 399) / 400;
  long long yoe = y - era * 400;
  long long mp = (month + 9) % 12;
  long long doy = (153 * mp + 2) / 5 + day - 1;
  long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468 + 25569;  // 1970-01-01 is serial 25569
}

int daysInMonth(int year, int month) {
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

bool splitSerial(double serial, DateParts& p) {
  if (!std::isfinite(serial) || serial <= kMinDay - 1 || serial >= kMaxDay + 1) return false;
  double whole = std::trunc(serial);
  long long day = static_cast<long long>(whole);
  long long seconds = std::llround(std::fabs(serial - whole) * 86400.0);
  if (seconds >= 86400) {  // rounds up to the next midnight
    if (day < static_cast<long long>(kMaxDay)) {
      seconds -= 86400;
      ++day;
    } else {
      seconds = 86399;
    }
  }
  // Civil date from the day count (inverse of daySerial).
  long long z = day - 25569 + 719468;
  long long era = (z >= 0 ? z : z - 146096) / 146097;
  long long doe = z - era * 146097;
  long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  long long mp = (5 * doy + 2) / 153;
  p.day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  p.month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  p.year = static_cast<int>(yoe + era * 400 + (p.month <= 2 ? 1 : 0));
  p.hour = static_cast<int>(seconds / 3600);
  p.minute = static_cast<int>(seconds / 60 % 60);
  p.second = static_cast<int>(seconds % 60);
  p.dayOfWeek = static_cast<int>(((day + 6) % 7 + 7) % 7);  // 1899-12-30 was a Saturday
  p.dayOfYear = static_cast<int>(day - daySerial(p.year, 1, 1) + 1);
  return true;
}

}  // namespace detail

namespace {

using detail::isBlank;
using detail::isDigit;

// A small cursor over a date-like text.
struct Cursor {
  std::string_view s;
  std::size_t i = 0;

  bool atEnd() const { return i >= s.size(); }
  void skipBlanks() {
    while (i < s.size() && isBlank(s[i])) ++i;
  }
  bool eat(char c) {
    if (i < s.size() && s[i] == c) {
      ++i;
      return true;
    }
    return false;
  }
  // Reads 1..maxDigits digits; returns the digit count (0 when none).
  int number(int maxDigits, int& value) {
    int n = 0;
    value = 0;
    while (n < maxDigits && i < s.size() && isDigit(s[i])) {
      value = value * 10 + (s[i++] - '0');
      ++n;
    }
    if (n == maxDigits && i < s.size() && isDigit(s[i])) return 0;  // too many digits
    return n;
  }
};

bool validDate(int y, int m, int d) {
  return y >= 100 && y <= 9999 && m >= 1 && m <= 12 && d >= 1 && d <= detail::daysInMonth(y, m);
}

// yyyy-mm-dd, yyyy.mm.dd[.] and yyyy/mm/dd (blanks allowed after the separators, as in the
// Hungarian "2024. 03. 05."), or the month-first m/d/yy[yy] that the en-US short date gives.
// On failure the cursor is left anywhere; the caller rewinds it.
bool parseDatePart(Cursor& c, double& days) {
  int a = 0, b = 0, d = 0;
  int na = c.number(4, a);
  if (na == 0 || c.atEnd()) return false;
  char sep = c.s[c.i];
  if (sep != '-' && sep != '.' && sep != '/') return false;
  ++c.i;
  c.skipBlanks();
  if (c.number(2, b) == 0 || !c.eat(sep)) return false;
  c.skipBlanks();
  int nd = c.number(4, d);
  if (nd == 0) return false;
  int y, m, dd;
  if (na == 4 && nd <= 2) {
    y = a, m = b, dd = d;
    if (sep == '.') c.eat('.');
  } else if (sep == '/' && na <= 2 && (nd == 2 || nd == 4)) {
    y = nd == 2 ? (d < 30 ? 2000 + d : 1900 + d) : d;
    m = a, dd = b;
  } else {
    return false;
  }
  if (!validDate(y, m, dd)) return false;
  days = static_cast<double>(detail::daySerial(y, m, dd));
  return true;
}

// h:mm[:ss] with an optional AM/PM, A/P designator (12-hour clock then).
bool parseTimePart(Cursor& c, double& fraction) {
  int h = 0, m = 0, s = 0;
  if (c.number(2, h) == 0 || !c.eat(':') || c.number(2, m) == 0) return false;
  if (c.eat(':') && c.number(2, s) == 0) return false;
  c.skipBlanks();
  if (!c.atEnd()) {
    char l = static_cast<char>(c.s[c.i] | 0x20);
    if (l == 'a' || l == 'p') {
      ++c.i;
      if (!c.atEnd() && (c.s[c.i] | 0x20) == 'm') ++c.i;
      if (h < 1 || h > 12) return false;
      h = h % 12 + (l == 'p' ? 12 : 0);
    }
  }
  if (h > 23 || m > 59 || s > 59) return false;
  fraction = (h * 3600 + m * 60 + s) / 86400.0;
  return true;
}

std::string localeFallback(double serial, const char* envName, const char* fixedPattern) {
  const char* pattern = std::getenv(envName);
  if (pattern == nullptr || *pattern == '\0') pattern = fixedPattern;
  return detail::formatSerial(serial, pattern);
}

}  // namespace

bool ParseDate(std::string_view text, double& serial) {
  Cursor c{text};
  c.skipBlanks();
  double days = 0, fraction = 0;
  std::size_t start = c.i;
  bool haveDate = parseDatePart(c, days);
  if (!haveDate) c.i = start;
  c.skipBlanks();
  bool haveTime = false;
  if (!c.atEnd()) {
    haveTime = parseTimePart(c, fraction);
    c.skipBlanks();
  }
  if (!c.atEnd() || (!haveDate && !haveTime)) return false;
  serial = days < 0 ? days - fraction : days + fraction;
  return true;
}

double NowSerial() {
  auto now = std::chrono::system_clock::now();
  std::time_t t = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &t);
#else
  localtime_r(&t, &local);
#endif
  auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count();
  double seconds =
      local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + (ms % 1000) / 1000.0;
  return static_cast<double>(
             detail::daySerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday)) +
         seconds / 86400.0;
}

#ifdef _WIN32
namespace {
bool toSystemTime(double serial, SYSTEMTIME& st) {
  detail::DateParts p;
  if (!detail::splitSerial(serial, p)) return false;
  st = SYSTEMTIME{};
  st.wYear = static_cast<WORD>(p.year);
  st.wMonth = static_cast<WORD>(p.month);
  st.wDay = static_cast<WORD>(p.day);
  st.wDayOfWeek = static_cast<WORD>(p.dayOfWeek);
  st.wHour = static_cast<WORD>(p.hour);
  st.wMinute = static_cast<WORD>(p.minute);
  st.wSecond = static_cast<WORD>(p.second);
  return true;
}
}  // namespace

std::string ShortDate(double serial) {
  SYSTEMTIME st;
  char buf[128];
  if (toSystemTime(serial, st) &&
      GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &st, nullptr, buf, sizeof buf) > 0)
    return buf;
  return localeFallback(serial, "KORVANE_DATE_FORMAT", "yyyy.mm.dd.");
}

std::string LongTime(double serial) {
  SYSTEMTIME st;
  char buf[128];
  if (toSystemTime(serial, st) &&
      GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &st, nullptr, buf, sizeof buf) > 0)
    return buf;
  return localeFallback(serial, "KORVANE_TIME_FORMAT", "hh:nn:ss");
}
#else
std::string ShortDate(double serial) {
  return localeFallback(serial, "KORVANE_DATE_FORMAT", "yyyy.mm.dd.");
}
std::string LongTime(double serial) {
  return localeFallback(serial, "KORVANE_TIME_FORMAT", "hh:nn:ss");
}
#endif

}  // namespace korvane::conv
