#include "platform/text/locale_format.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace orvane {
namespace {
using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;
using icu::number::Precision;

// Nobody shows more; a double has no more than 17 digits to show.
constexpr int mostDigits = 17;

/// The first of the variables that is set and not empty.
std::string firstSet(std::initializer_list<const char*> variables) {
  for (const char* const variable : variables) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') { return value; }
  }
  return {};
}

struct ScriptModifier {
  std::string_view modifier;
  std::string_view script;
};

// What the environment says behind "@" where it matters to numbers and dates.
constexpr ScriptModifier scriptModifiers[] = {
    {.modifier = "latin", .script = "_Latn"},
    {.modifier = "iqtelif", .script = "_Latn"},
    {.modifier = "cyrillic", .script = "_Cyrl"},
    {.modifier = "devanagari", .script = "_Deva"},
};

std::string_view scriptOf(std::string_view modifier) {
  for (const ScriptModifier& known : scriptModifiers) {
    if (known.modifier == modifier) { return known.script; }
  }
  return {};
}

/// Reads language[_territory][.codeset][@modifier].
icu::Locale localeNamed(std::string_view name) {
  const std::string_view base = name.substr(0, name.find_first_of(".@"));
  if (base.empty() || base == "C" || base == "POSIX") { return icu::Locale::getUS(); }
  const std::size_t at = name.find('@');
  const std::string_view modifier = at == name.npos ? std::string_view() : name.substr(at + 1);
  std::string identifier(base);
  identifier.insert(base.substr(0, base.find('_')).size(), scriptOf(modifier));
  const icu::Locale locale(identifier.c_str());
  return locale.isBogus() != 0 ? icu::Locale::getUS() : locale;
}

icu::Locale withGregorianCalendar(icu::Locale locale) {
  UErrorCode status = U_ZERO_ERROR;
  locale.setKeywordValue("calendar", "gregorian", status);
  return locale;
}

using Zone = std::unique_ptr<icu::TimeZone>;

Zone timeZoneNamed(const std::string& name) {
  return Zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
}

/// The time zone of the user's texts: a fixed one, or the system's as long as a link leads to it.
/// ICU would find the system's only once.
class UsersZone {
 public:
  explicit UsersZone(const LocaleNames& names) {
    if (!names.timeZone.empty()) {
      fresh_ = timeZoneNamed(names.timeZone);
    } else if (firstSet({"TZ"}).empty()) {
      link_ = names.systemZoneLink;
    }
    if (!fresh_) { fresh_.reset(icu::TimeZone::detectHostTimeZone()); }
  }

  /// The zone, when it is another one than at the last call; else null.
  Zone takeNew() {
    if (!link_.empty()) { followLink(); }
    return std::exchange(fresh_, nullptr);
  }

 private:
  void followLink() {
    constexpr std::string_view folder = "/zoneinfo/";
    std::error_code error;
    const std::string target = std::filesystem::read_symlink(link_, error).string();
    const std::size_t at = target.rfind(folder);
    if (at == target.npos || target == target_) { return; }
    target_ = target;
    Zone zone = timeZoneNamed(target.substr(at + folder.size()));
    if (*zone != icu::TimeZone::getUnknown()) { fresh_ = std::move(zone); }
  }

  Zone fresh_;
  std::filesystem::path link_;
  std::string target_;
};

/// The empty text when ICU has no data to make a format of.
std::string formatted(const std::unique_ptr<icu::DateFormat>& format, UDate milliseconds) {
  icu::UnicodeString text;
  std::string result;
  if (format) { format->format(milliseconds, text).toUTF8String(result); }
  return result;
}

// In floating point: no moment overflows, and ICU keeps to the years it can write.
UDate milliseconds(std::chrono::sys_seconds time) {
  return static_cast<UDate>(time.time_since_epoch().count()) * 1000;
}

/// In the order that the locale writes the parts in.
std::unique_ptr<icu::DateFormat> utcFormatter(const icu::Locale& locale, const char* parts) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createInstanceForSkeleton(
      icu::UnicodeString::fromUTF8(parts), withGregorianCalendar(locale), status));
  if (U_FAILURE(status)) { return nullptr; }
  format->setTimeZone(*icu::TimeZone::getGMT());
  return format;
}

LocalizedNumberFormatter fixedFormatter(const icu::Locale& locale, int digits) {
  return NumberFormatter::withLocale(locale).precision(Precision::fixedFraction(digits));
}
}  // namespace

LocaleNames LocaleNames::fromEnvironment() {
  return {.numbers = firstSet({"LC_ALL", "LC_NUMERIC", "LANG"}),
          .dates = firstSet({"LC_ALL", "LC_TIME", "LANG"})};
}

struct LocaleFormat::Formatters {
  explicit Formatters(const LocaleNames& names) : zone(names) {}

  LocalizedNumberFormatter integer;
  icu::Locale numbers;
  /// By the number of digits, once it is needed.
  std::array<std::optional<LocalizedNumberFormatter>, mostDigits + 1> fixed;
  std::unique_ptr<icu::DateFormat> shortTime;
  std::unique_ptr<icu::DateFormat> mediumDateShortTime;  ///< once it is needed
  std::unique_ptr<icu::DateFormat> mediumDateUtc;
  icu::Locale dates;
  std::array<std::unique_ptr<icu::DateFormat>, 3> calendarUtc;  ///< by the part, once it is needed
  UsersZone zone;

  void moveToUsersZone() {
    const Zone moved = zone.takeNew();
    if (!moved) { return; }
    for (icu::DateFormat* const format : {shortTime.get(), mediumDateShortTime.get()}) {
      if (format) { format->setTimeZone(*moved); }
    }
  }
};

LocaleFormat::LocaleFormat(const LocaleNames& names)
    : formatters_(std::make_unique<Formatters>(names)) {
  using icu::DateFormat;
  const icu::Locale numbers = localeNamed(names.numbers);
  const icu::Locale dates = localeNamed(names.dates);
  Formatters& made = *formatters_;
  made.integer = NumberFormatter::withLocale(numbers);
  made.numbers = numbers;
  made.shortTime.reset(DateFormat::createTimeInstance(DateFormat::kShort, dates));
  made.mediumDateUtc.reset(
      DateFormat::createDateInstance(DateFormat::kMedium, withGregorianCalendar(dates)));
  if (made.mediumDateUtc) { made.mediumDateUtc->setTimeZone(*icu::TimeZone::getGMT()); }
  made.dates = dates;
}

LocaleFormat::~LocaleFormat() = default;

std::string LocaleFormat::integer(std::int64_t value) const {
  UErrorCode status = U_ZERO_ERROR;
  std::string text;
  return formatters_->integer.formatInt(value, status).toString(status).toUTF8String(text);
}

std::string LocaleFormat::fixed(double value, int digits) const {
  UErrorCode status = U_ZERO_ERROR;
  std::string text;
  const int shown = std::clamp(digits, 0, mostDigits);
  auto& formatter = formatters_->fixed[static_cast<std::size_t>(shown)];
  if (!formatter) { formatter = fixedFormatter(formatters_->numbers, shown); }
  return formatter->formatDouble(value, status).toString(status).toUTF8String(text);
}

std::string LocaleFormat::shortTime(WallTime time) const {
  formatters_->moveToUsersZone();
  return formatted(formatters_->shortTime, static_cast<UDate>(time.time_since_epoch().count()));
}

std::string LocaleFormat::mediumDateShortTime(std::chrono::sys_seconds time) const {
  formatters_->moveToUsersZone();
  auto& format = formatters_->mediumDateShortTime;
  if (!format) {
    format.reset(icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::kMedium, icu::DateFormat::kShort, formatters_->dates));
    // By now the user may have moved, which the new format does not know.
    const auto& beside = formatters_->shortTime;
    if (format && beside) { format->setTimeZone(beside->getTimeZone()); }
  }
  return formatted(format, milliseconds(time));
}

std::string LocaleFormat::mediumDateUtc(std::chrono::sys_seconds time) const {
  return formatted(formatters_->mediumDateUtc, milliseconds(time));
}

std::string LocaleFormat::calendarUtc(CalendarPart part, std::chrono::sys_seconds time) const {
  constexpr std::array skeletons{"MMMd", "MMM", "y"};
  const auto index = static_cast<std::size_t>(part);
  auto& format = formatters_->calendarUtc.at(index);
  // The patterns of a locale are looked through for it, which takes as long as all else here.
  if (!format) { format = utcFormatter(formatters_->dates, skeletons.at(index)); }
  return formatted(format, milliseconds(time));
}
}  // namespace orvane
