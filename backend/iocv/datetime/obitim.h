// Times of day and durations: 12:30, -1:00:15.25, T12:30, 123015.
#pragma once

#include <optional>
#include <string_view>

#include "datetime/obdtps.h"
#include "datetime/read_date.h"
#include "frame/leaf.h"

namespace iocv {

enum class Hours {
  of_day,     // 0..23
  unbounded,  // of a duration
};

// TIME: a duration that fills the field.
DateRead read_time(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_time_plain(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept;

// The time that runs from a byte of the field to its end.
DateRead read_time_at(std::string_view field, std::size_t position, Hours hours,
                      const Settings& settings) noexcept;

// -1 or +1 when the token is a sign.
std::optional<double> sign_of(const Token& token) noexcept;

}  // namespace iocv
