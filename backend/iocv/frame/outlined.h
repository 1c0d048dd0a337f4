// Functions that stay out of line under their own argument list, so that a caller whose list is the
// same reaches them by a mere jump and needs no frame.
#pragma once

#if defined(__GNUC__) && !defined(__clang__)
#define IOCV_OUTLINED [[gnu::noipa]]  // noinline alone would let the list be rearranged
#else
#define IOCV_OUTLINED [[gnu::noinline]]
#endif
