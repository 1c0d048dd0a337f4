// The formats that benchmarks convert, both ways unless told.
#pragma once

#include <iocv/format.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace bench {

struct Row {
  std::string_view name;
  std::int32_t type;
  std::int64_t width;
  std::int64_t decimals = 0;
};

inline constexpr Row kF8_2{"F8.2", VELT_Format::F, 8, 2};
inline constexpr Row kF8_0{"F8.0", VELT_Format::F, 8, 0};
inline constexpr Row kF12_4{"F12.4", VELT_Format::F, 12, 4};
inline constexpr Row kE12_3{"E12.3", VELT_Format::E, 12, 3};
inline constexpr Row kComma12_2{"COMMA12.2", VELT_Format::COMMA, 12, 2};
inline constexpr Row kDate11{"DATE11", VELT_Format::DATE, 11};
inline constexpr Row kAdate10{"ADATE10", VELT_Format::ADATE, 10};
inline constexpr Row kSdate10{"SDATE10", VELT_Format::SDATE, 10};
inline constexpr Row kDatetime20{"DATETIME20", VELT_Format::DATETIME, 20};
inline constexpr Row kTime8{"TIME8", VELT_Format::TIME, 8};
inline constexpr Row kP8_2{"P8.2", VELT_Format::P, 8, 2};
inline constexpr Row kZ8_2{"Z8.2", VELT_Format::Z, 8, 2};
inline constexpr Row kIb4{"IB4", VELT_Format::IB, 4};
inline constexpr Row kPib8{"PIB8", VELT_Format::PIB, 8};

inline constexpr Row kWritten[] = {kF8_2,    kF12_4,   kE12_3,      kComma12_2, kDate11,
                                   kAdate10, kSdate10, kDatetime20, kTime8,     kP8_2,
                                   kZ8_2,    kIb4,     kPib8};
inline constexpr Row kRead[] = {kF8_2,    kF12_4,      kE12_3, kComma12_2, kF8_0, kDate11, kAdate10,
                                kSdate10, kDatetime20, kTime8, kP8_2,      kZ8_2, kIb4,    kPib8};

// A name for a format that is no row: "F10.3".
std::string name_of(std::string_view type, std::int64_t width, std::int64_t decimals);

}  // namespace bench
