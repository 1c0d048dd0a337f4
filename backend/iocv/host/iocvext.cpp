// The extension hook.
#include <iocv/convert.h>
#include <iocv/extension.h>
#include <iocv/hook.h>

#include <clocale>
#include <string>
#include <string_view>
#include <utility>

#include "frame/field.h"
#include "frame/format_code.h"
#include "frame/leaf.h"
#include "frame/record_pointers.h"
#include "frame/status.h"
#include "host/double_to_string.h"
#include "host/elapsed.h"

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
    const std::int64_t room = width - kSeconds.narrowest - 1;
    return std::string(kSeconds.pattern).append(decimals_in_room(value, room, decimals).view());
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
  if (value < kFirstDate) return out.put_right(".");
  customFormatter formatter;
  out.put_right(formatter.convertDate(value, year_first_pattern(value, out.width(), decimals)));
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
    const std::string_view field = iocv::input_field(text, *width);
    // The process's locale counts here, not the library's own decimal character.
    const iocv::Settings settings = {.decimal = *std::localeconv()->decimal_point};
    const auto [seconds, status] = iocv::read_elapsed_field(field, *decimals, settings);
    value->number = seconds;
    return static_cast<std::int64_t>(status);
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
  const iocv::Settings settings = {.system_missing_char =
                                       iocv::record_pointers.system_text->system_missing};
  if (iocv::write_missing_constant(out, value->number, *decimals, settings)) return iocv::kOk;
  switch (static_cast<iocv::FormatCode>(*code)) {
    case iocv::FormatCode::elapsed:
      iocv::write_elapsed_field(out, value->number, *decimals, settings);
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
