// The exported records, with the values that they hold before initialisation.
#include <iocv/records.h>

#include <bit>
#include <cstddef>
#include <cstdint>

#include "frame/constants.h"

namespace {

constexpr double from_bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

}  // namespace

static_assert(offsetof(IocvGeneralRecord, system_missing) == 8);
static_assert(offsetof(IocvGeneralRecord, blank_value) == 16);
static_assert(sizeof(IocvGeneralText) == 512);
static_assert(offsetof(IocvSystemRecord, leading_zero) == 0);
static_assert(offsetof(IocvSystemText, system_missing) == 0 && sizeof(IocvSystemText) == 766);
static_assert(sizeof(IocvLocaleRecord) == 32);
static_assert(sizeof(IocvMachineRecord) == 128 && sizeof(IocvMachineText) == 16);
static_assert(offsetof(IocvDateRecord, century_begin) == 48 && sizeof(IocvDateRecord) == 64);
static_assert(sizeof(IocvDateText) == 3 && sizeof(IocvSmallRecord) == 8);

extern "C" {

constinit IocvGeneralRecord cmnglb_ = {.reserved = 0,
                                       .system_missing = iocv::kSystemMissing,
                                       .blank_value = 0,
                                       .limit = 0,
                                       .host_values = {},
                                       .host_flags = {},
                                       .host_zeros = {}};
constinit IocvGeneralText cmaglb_ = {};
constinit IocvSystemRecord cmnsys_ = {};
constinit IocvSystemText cmasys_ = {};
constinit IocvLocaleRecord cmnloc_ = {};
constinit IocvMachineRecord cmnmch_ = {
    .lowest_finite = from_bits(0xFFEF'FFFF'FFFF'FFFF),
    .smallest_normal = from_bits(0x0010'0000'0000'0000),
    .largest_finite = from_bits(0x7FEF'FFFF'FFFF'FFFF),
    .epsilon = from_bits(0x3CB0'0000'0000'0000),
    .largest_exponent_argument = from_bits(0x4086'2E3D'70A3'D70A),  // 709.78
    .two_to_52 = from_bits(0x4330'0000'0000'0000),
    .largest_output = from_bits(0x7FEF'FFFF'FFFF'FFFF),
    .largest_finite_again = from_bits(0x7FEF'FFFF'FFFF'FFFF),
    .blanks = 0,
    .above_lowest = from_bits(0xFFEF'FFFF'FFFF'FFFE),
    .lowest_single = from_bits(0xC7EF'FFFF'C000'0000),   // -3.4028232635611926e38
    .highest_single = from_bits(0x47EF'FFFF'E000'0000),  // 3.4028234663852886e38
    .largest_int32 = from_bits(0x41DF'FFFF'FFC0'0000),
    .square_root = from_bits(0x5FE6'A09E'667F'3BCC),  // 9.480751908109176e153
    .cube_root = from_bits(0x553F'FFFF'FFFF'FFFF),    // 4.479489484355608e102
    .fourth_root = from_bits(0x4FEA'E89F'995A'D3AD),  // 9.73691527543974e76
};
constinit IocvMachineText cmamch_ = {};
constinit IocvDateRecord cmndtm_ = {};
constinit IocvDateText cmadtm_ = {};
constinit IocvSmallRecord cmnobog_ = {};

}  // extern "C"
