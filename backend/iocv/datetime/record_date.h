// What every flat writer of dates leaves in the exported records: the fields of its date.
//
// Threads that write dates at the same time may leave any of theirs there; what they leave has no
// order and is read by none of them. So a field only has to go there in one piece, and neighbours
// go together where a machine stores 16 bytes by one instruction: each 8 of them stay in one piece.
// The language has no name for such a store and calls it a race, so races are not looked for here.
#pragma once

#include <iocv/records.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "datetime/moment_fast.h"

namespace iocv::fast {

#define IOCV_RACES_MEANT __attribute__((no_sanitize("thread")))

inline std::int64_t minute_begin(const Moment& moment, const Clock& clock) noexcept {
  return static_cast<std::int64_t>(moment.whole - clock.second);
}

#if defined(__SSE2__)

// A field of 8 bytes and the next one.
template <class T>
IOCV_RACES_MEANT void store_two(T& first, __m128i both) noexcept {
  static_assert(sizeof first == 8);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(&first), both);
}

static_assert(offsetof(IocvDateRecord, year) == offsetof(IocvDateRecord, seconds) + 8);
static_assert(offsetof(IocvDateRecord, day) == offsetof(IocvDateRecord, month) + 8);
static_assert(offsetof(IocvDateRecord, minute) == offsetof(IocvDateRecord, hour) + 8);

inline void record_time(const Moment& moment, const Clock& clock) noexcept {
  store_two(cmndtm_.hour, is_midnight(moment)
                              ? _mm_setzero_si128()
                              : _mm_unpacklo_epi64(_mm_cvtsi64_si128(clock.hour),
                                                   _mm_cvtsi64_si128(clock.minute)));
}

inline void record_date(const Moment& moment, const Clock& clock, const Date& date) noexcept {
  const __m128d seconds = _mm_sub_sd(_mm_set_sd(moment.value),
                                     _mm_cvtsi64_sd(_mm_setzero_pd(), minute_begin(moment, clock)));
  const __m128i year = _mm_cvtsi64_si128(static_cast<std::int64_t>(date.year));
  store_two(cmndtm_.seconds, _mm_unpacklo_epi64(_mm_castpd_si128(seconds), year));

  const __m128i zero = _mm_setzero_si128();
  const __m128i halves = _mm_cvtsi32_si128(static_cast<int>(date.month_and_day()));
  store_two(cmndtm_.month, _mm_unpacklo_epi32(_mm_unpacklo_epi16(halves, zero), zero));
}

#else

template <class T, class Part>
void store_relaxed(T& field, Part part) noexcept {
  std::atomic_ref(field).store(static_cast<T>(part), std::memory_order_relaxed);
}

inline void record_time(const Moment&, const Clock& clock) noexcept {
  store_relaxed(cmndtm_.hour, clock.hour);
  store_relaxed(cmndtm_.minute, clock.minute);
}

inline void record_date(const Moment& moment, const Clock& clock, const Date& date) noexcept {
  store_relaxed(cmndtm_.seconds, moment.value - static_cast<double>(minute_begin(moment, clock)));
  store_relaxed(cmndtm_.year, date.year);
  store_relaxed(cmndtm_.month, date.month());
  store_relaxed(cmndtm_.day, date.day());
}

#endif

IOCV_RACES_MEANT inline void record_letters(const Date& date) noexcept {
  std::memcpy(&cmadtm_.month, &kTables.letters[date.month()], sizeof cmadtm_.month);
}

#undef IOCV_RACES_MEANT

}  // namespace iocv::fast
