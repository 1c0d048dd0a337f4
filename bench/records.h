// The records that benchmarks convert: unpredictable lengths and signs, the same in every run.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "rows.h"

namespace bench {

inline constexpr std::size_t kCold = 1'000'000;  // the branch predictor cannot learn these
inline constexpr std::size_t kHot = 16;          // over and over

// Such values as the format's ordinary columns hold. Numbers have any length up to what always fits
// (eleven digits at most), a quarter is negative where the format has a sign, and two decimals more
// than the format shows, never half a unit: there peers disagree. Days are of 1900 to 2099.
std::vector<double> make_values(const Row& row, std::size_t count);

// The fields of these values, one after the other, as the library writes them.
std::string make_fields(const Row& row, const std::vector<double>& values);

// kCold of them, made once for each row.
const std::vector<double>& values_of(const Row& row);
const std::string& fields_of(const Row& row);

// Values and fields that no fast path answers, a kind at a time.
enum class Odd { missing, no_number, too_large, too_small };
inline constexpr Odd kOdd[] = {Odd::missing, Odd::no_number, Odd::too_large, Odd::too_small};
std::vector<double> make_odd_values(const Row& row, Odd kind, std::size_t count);
std::string make_odd_fields(const Row& row, Odd kind, std::size_t count);

}  // namespace bench
