#include "empty_call.h"

namespace bench {

void empty_write_call(const OBS*, const std::int32_t*, const std::int64_t*, const std::int64_t*,
                      char*, std::int64_t*, std::int64_t) {}
void empty_read_call(const char*, const std::int32_t*, const std::int64_t*, const std::int64_t*,
                     OBS*, std::int64_t*, std::int64_t) {}

}  // namespace bench
