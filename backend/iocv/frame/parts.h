// Readers in two parts: a fast attempt at ordinary fields in front of the plain steps for all.
#pragma once

#include <type_traits>

namespace iocv {

// attempt is (field, width of any sign, decimals, code, settings, value) -> whether it answered,
// with status 0 then; plain is the reader that answers what is left.
template <class Attempt, class Plain>
struct Parts {
  Attempt* attempt;
  Plain* plain;
};
template <class Attempt, class Plain>
Parts(Attempt*, Plain*) -> Parts<Attempt, Plain>;

// A reader's parts, stated beside its declaration; a reader without is one whole.
template <auto Read>
inline constexpr auto kParts = nullptr;

template <auto Read>
inline constexpr bool kHasParts = !std::is_null_pointer_v<std::remove_cv_t<decltype(kParts<Read>)>>;

}  // namespace iocv
