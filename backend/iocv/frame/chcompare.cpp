#include "frame/chcompare.h"

#include <iocv/fields.h>

#include "frame/place.h"

namespace iocv {

std::int64_t find_word(std::string_view word, const char* table, std::int64_t entry_length,
                       std::int64_t stride, std::int64_t count) noexcept {
  if (entry_length < 1) return count > 0 && is_blank(word) ? 1 : 0;  // empty entries, all alike
  for (std::int64_t entry = 0; entry < count; ++entry) {
    if (equal_padded(word, text_at(table, 1 + entry * stride, entry_length))) return entry + 1;
  }
  return 0;
}

}  // namespace iocv

extern "C" {

std::int64_t qblnkc_(const char* base, const std::int64_t* position, const std::int64_t* length,
                     std::int64_t) {
  return iocv::logical(iocv::is_blank(iocv::text_at(base, *position, *length)));
}

std::int64_t qcmpcc_(const char* first, const std::int64_t* first_position, const char* second,
                     const std::int64_t* second_position, const std::int64_t* length, std::int64_t,
                     std::int64_t) {
  return iocv::logical(iocv::text_at(first, *first_position, *length) ==
                       iocv::text_at(second, *second_position, *length));
}

std::int64_t iwdndx_(const char* word, const char* table, const std::int64_t* entry_length,
                     const std::int64_t* stride, const std::int64_t* count,
                     std::int64_t word_length, std::int64_t) {
  return iocv::find_word(iocv::text_at(word, 1, word_length), table, *entry_length, *stride,
                         *count);
}

}  // extern "C"
