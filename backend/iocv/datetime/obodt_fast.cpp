// The fast way of DATETIME as text: dd-MMM-yyyy hh:mm:ss of an ordinary moment (oboida_fast.h) in a
// field of just that width, which shows no fraction whatever the decimals are.
#include "datetime/obodt.h"
#include "datetime/oboida_fast.h"
#include "frame/outlined.h"

namespace iocv {
namespace {

constexpr std::int64_t kWidth = 20;

void put_date_time(char* text, const fast::Moment& moment, const fast::Clock& clock) {
  fast::DateText::put(text, moment);
  text[11] = ' ';
  fast::put_two(text + 12, clock.hour);
  text[14] = ':';
  fast::put_two(text + 15, clock.minute);
  text[17] = ':';
  fast::put_two(text + 18, clock.second);
}

// The plain row, as it is: inlined it would cost the fast one a frame.
IOCV_OUTLINED void write_plain(const OBS* value, const std::int32_t* type,
                               const std::int64_t* width, const std::int64_t* decimals, char* text,
                               std::int64_t* status) {
  write_date_leaf<write_date_time_plain>(value, type, width, decimals, text, status, *width);
}

}  // namespace

Status write_date_time(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept {
  if (out.width() != kWidth ||
      !fast::is_ordinary_moment(fast::bits_of(value), settings.system_missing)) {
    return write_date_time_plain(out, value, decimals, settings);
  }
  const fast::Moment moment = fast::moment_of(value);
  put_date_time(out.data(), moment, fast::clock_of(moment.second_of_day));
  return Status::ok;
}

template <>
void write_date_leaf<write_date_time>(const OBS* value, const std::int32_t* type,
                                      const std::int64_t* width, const std::int64_t* decimals,
                                      char* text, std::int64_t* status, std::int64_t) {
  const std::uint64_t bits = fast::bits_of(value->number);
  if (*width != kWidth || !fast::is_ordinary_moment(bits, cmnglb_.system_missing)) {
    return write_plain(value, type, width, decimals, text, status);
  }
  const auto number = std::bit_cast<double>(bits);
  const fast::Moment moment = fast::moment_of(number);
  const fast::Clock clock = fast::clock_of(moment.second_of_day);
  put_date_time(text, moment, clock);
  fast::record_date(moment);
  fast::record_time(moment, clock, number);
  store(status, Status::ok);
}

}  // namespace iocv
