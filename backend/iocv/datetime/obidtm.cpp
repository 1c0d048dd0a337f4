#include "datetime/obidtm.h"

#include <iocv/date_input.h>

#include <cmath>

#include "datetime/obdtps.h"
#include "datetime/obitim.h"
#include "frame/leaf.h"

namespace iocv {

DateRead read_dtime_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  const double missing = settings.system_missing;
  const DateRead failed = {missing, Status::dtime_text, 0};
  Scanner scanner(field, settings.decimal);
  Token token = scanner.next_item();
  if (token.type == TokenType::blanks) return {missing, Status::ok, scanner.position()};

  double sign = 1;
  if (token.type != TokenType::number) {
    const std::optional<double> written = sign_of(token);
    if (!written) return failed;
    sign = *written;
    token = scanner.next();
    if (token.type != TokenType::number) return failed;
  }
  const double days = token.value;

  if (!scanner.at_end()) {
    const TokenType delimiter = scanner.next().type;
    if (delimiter != TokenType::blanks && delimiter != TokenType::time_separator) return failed;
  }
  DateRead time = {0, Status::ok, scanner.position()};
  if (!scanner.at_end()) time = read_time_at(field, scanner.position(), Hours::of_day, settings);

  const double value = sign * (days * kSecondsPerDay + time.value);
  if (time.status != Status::ok || !std::isfinite(value)) return failed;
  return {value, Status::ok, time.position};
}

}  // namespace iocv

extern "C" void obidtm_(const char* text, const std::int64_t* width, double* value,
                        std::int64_t* status, std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_dtime(iocv::input_field(text, *width), 0, iocv::Settings::current()),
              value, status, position);
}
