// The records that benchmarks convert: unpredictable lengths and signs, the same in every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

inline constexpr std::size_t kCold = 1'000'000;  // the branch predictor cannot learn these
inline constexpr std::size_t kHot = 16;          // over and over

// Values with up to the given digits before and decimals after the point, a quarter negative.
std::vector<double> values(std::size_t count, int most_integer_digits, int decimals);

// Fixed-width fields of text, one after the other.
struct Fields {
  std::string bytes;
  std::size_t width;
  [[nodiscard]] const char* field(std::size_t i) const { return bytes.data() + i * width; }
};

// Right-aligned numbers as printf("%*.*f") writes them.
Fields fixed_fields(const std::vector<double>& values, int width, int decimals);

// Such values as the format's ordinary columns hold; PIB has none below zero.
std::vector<double> output_values(std::size_t count, std::int32_t type, std::int64_t width,
                                  std::int64_t decimals);

// Such values as the library writes them under a format; the least widths of text hold them all.
Fields written_fields(std::size_t count, std::int32_t type, std::int64_t width,
                      std::int64_t decimals);

}  // namespace bench
