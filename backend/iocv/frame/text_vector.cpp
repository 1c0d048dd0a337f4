#include "frame/text_vector.h"

#if defined(__SSE2__)

namespace iocv::text_vector {

alignas(16) constinit const std::int16_t kTenAndOne[8] = {2561, 2561, 2561, 2561,
                                                          2561, 2561, 2561, 2561};

}  // namespace iocv::text_vector

#endif
