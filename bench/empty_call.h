// Calls with the arguments of obocv_ and obicv_ that do nothing: what any routine costs at least.
// They live in a source of their own, so that they are really called.
#pragma once

#include <iocv/base.h>

#include <cstdint>

namespace bench {

void empty_write_call(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                      const std::int64_t* decimals, char* text, std::int64_t* status,
                      std::int64_t text_length);
void empty_read_call(const char* text, const std::int32_t* type, const std::int64_t* width,
                     const std::int64_t* decimals, OBS* value, std::int64_t* status,
                     std::int64_t text_length);

}  // namespace bench
