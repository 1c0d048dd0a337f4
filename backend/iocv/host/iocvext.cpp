// The extension hook.
#include <iocv/convert.h>
#include <iocv/extension.h>
#include <iocv/hook.h>
#include <iocv/host.h>

#include <cmath>
#include <limits>
#include <utility>

#include "frame/field.h"
#include "frame/format_code.h"
#include "frame/leaf.h"
#include "frame/record_pointers.h"
#include "frame/status.h"

IocvConverter::~IocvConverter() = default;
IocvExtension::~IocvExtension() = default;

namespace iocv {
namespace {

constinit IocvExtension* extension = nullptr;

constexpr std::int64_t kOk = static_cast<std::int64_t>(Status::ok);
constexpr std::int64_t kNoConverter = static_cast<std::int64_t>(Status::no_converter);

// Null when nobody converts the code.
IocvConverter* find_converter(std::int64_t code) {
  return extension ? extension->FindConverter(static_cast<int>(code)) : nullptr;
}

int as_int(std::int64_t n) {
  using limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<std::int64_t>(n, limits::min(), limits::max()));
}

// Right-aligned; asterisks when the text is wider than the field.
void write_right(Field out, std::string_view text) {
  const auto length = static_cast<std::int64_t>(text.size());
  if (length > out.width()) return out.overflow();
  out.blank();
  if (length > 0) std::memcpy(out.data() + out.width() - length, text.data(), text.size());
}

// Where the units digit of a number with these decimals would stand.
void write_missing(Field out, std::int64_t decimals) {
  const std::int64_t column = out.width() - 1 - std::clamp<std::int64_t>(decimals, 0, out.width());
  out.mark(column, record_pointers.system_text->system_missing);
}

std::string two_digits(long number) {
  const std::string digits = timeAsString(number);
  return digits.size() < 2 ? "0" + digits : digits;
}

// All minutes, a colon, two digits of seconds and the decimals that fit: "  125:07.50".
void write_elapsed(Field out, double value, std::int64_t decimals) {
  constexpr std::int64_t kNarrowest = 5;
  constexpr double kTwoTo64 = 18446744073709551616.0;
  if (out.width() < kNarrowest) return;  // the field keeps its bytes
  if (!(std::fabs(value) < kTwoTo64)) return out.overflow();

  const auto elapsed = static_cast<std::uint64_t>(std::fabs(value));
  const std::uint64_t hours = elapsed / 3600;  // [0, 5124095576030431]
  // The part of an hour is counted in doubles, which makes a minute less of some values. Stored
  // output shows it so.
  const double part = static_cast<double>(elapsed) / 3600.0 - static_cast<double>(hours);
  const long minutes = static_cast<long>(part * 60.0) + static_cast<long>(hours * 60);

  const bool negative = value < 0;
  std::string text = two_digits(minutes) + ":" + two_digits(static_cast<long>(elapsed % 60));
  const std::int64_t room =
      out.width() - static_cast<std::int64_t>(text.size()) - (negative ? 2 : 1);
  // The decimals are those of the whole value, rounded, while the seconds are cut: 59.999 with two
  // decimals is 00:59.00.
  text += decimalAsString(value, as_int(room), as_int(decimals));
  if (negative) text.insert(0, 1, '-');
  write_right(out, text);
}

// The pattern that fills a field of a width of 8 or more.
std::string year_first_pattern(double value, std::int64_t width, std::int64_t decimals) {
  struct Row {
    std::int64_t narrowest;
    std::string_view pattern;
  };
  constexpr Row kSeconds = {19, "yyyy-MM-dd HH:mm:ss"};
  constexpr Row kShorter[] = {
      {16, "yyyy-MM-dd HH:mm"},
      {13, "yyyy-MM-dd HH"},
      {10, "yyyy-MM-dd"},
      {8, "yyyyMMdd"},
  };
  if (width >= kSeconds.narrowest) {
    // The point and the decimals enter as literal text.
    return std::string(kSeconds.pattern) +
           decimalAsString(value, as_int(width - kSeconds.narrowest - 1), as_int(decimals));
  }
  const Row* row = kShorter;
  while (width < row->narrowest) ++row;
  std::string pattern(row->pattern);
  pattern.resize(static_cast<std::size_t>(width), ' ');
  return pattern;
}

// The texts of the formatter are as long as their patterns while the year has four digits.
void write_year_first(Field out, double value, std::int64_t decimals) {
  constexpr std::int64_t kNarrowest = 8;
  constexpr double kFirstDate = 86400.0;
  if (out.width() < kNarrowest) return out.overflow();
  if (value < kFirstDate) return write_right(out, ".");
  customFormatter formatter;
  write_right(out, formatter.convertDate(value, year_first_pattern(value, out.width(), decimals)));
}

// The text of the field behind its leading blanks, up to a zero byte.
std::string_view elapsed_text(std::string_view field) {
  field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
  return field.substr(0, field.find('\0'));
}

}  // namespace
}  // namespace iocv

IocvExtension* SetIocvExtension(IocvExtension* extension) {
  return std::exchange(iocv::extension, extension);
}

extern "C" {

std::int64_t obicvext_(const char* text, const std::int64_t* code, const std::int64_t* width,
                       const std::int64_t* decimals, OBS* value, std::int64_t) {
  if (static_cast<iocv::FormatCode>(*code) == iocv::FormatCode::elapsed) {
    int status = 0;
    const std::string elapsed(iocv::elapsed_text(iocv::input_field(text, *width)));
    value->number = mTimeInput().convertTimeStringToObs(elapsed, iocv::as_int(*decimals), status);
    return status;
  }
  if (IocvConverter* converter = iocv::find_converter(*code)) {
    return converter->Input(&value->number, text, static_cast<int>(*width),
                            static_cast<int>(*decimals));
  }
  return iocv::kNoConverter;
}

std::int64_t obocvext_(const OBS* value, const std::int64_t* code, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t) {
  const iocv::Field out(text, *width);
  if (ObsEqual(*value, VELT_SystemMissing())) {
    iocv::write_missing(out, *decimals);
    return iocv::kOk;
  }
  switch (static_cast<iocv::FormatCode>(*code)) {
    case iocv::FormatCode::elapsed:
      iocv::write_elapsed(out, value->number, *decimals);
      return iocv::kOk;
    case iocv::FormatCode::year_first:
      iocv::write_year_first(out, value->number, *decimals);
      return iocv::kOk;
    default: break;
  }
  if (IocvConverter* converter = iocv::find_converter(*code)) {
    return converter->Output(&value->number, text, static_cast<int>(*width),
                             static_cast<int>(*decimals));
  }
  return iocv::kNoConverter;
}

}  // extern "C"
