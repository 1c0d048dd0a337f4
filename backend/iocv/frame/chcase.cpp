#include "frame/chcase.h"

#include <iocv/fields.h>
#include <iocv/platform.h>

#include "frame/place.h"

namespace iocv {
namespace {

using Change = void(char*, std::int64_t) noexcept;

// ASCII letters are changed here; from the first other character on the platform does the rest.
template <char first, Change change_any>
void change_case(char* text, std::size_t size) noexcept {
  for (std::size_t i = 0; i < size; ++i) {
    if (static_cast<unsigned char>(text[i]) > 127) {
      return change_any(text + i, static_cast<std::int64_t>(size - i));
    }
    if (text[i] >= first && text[i] < first + 26) text[i] = static_cast<char>(text[i] ^ 0x20);
  }
}

}  // namespace

void lower_case(char* text, std::size_t size) noexcept {
  change_case<'A', VELTMBmemlwr_A>(text, size);
}

void upper_case(char* text, std::size_t size) noexcept {
  change_case<'a', VELTMBmemupr_A>(text, size);
}

}  // namespace iocv

extern "C" {

void chlwrn_(char* base, const std::int64_t* position, const std::int64_t* length) {
  const iocv::Field field = iocv::field_at(base, *position, *length);
  iocv::lower_case(field.data(), static_cast<std::size_t>(field.width()));
}

void chlwrc_(char* base, const std::int64_t* position, const std::int64_t* length, std::int64_t) {
  chlwrn_(base, position, length);
}

void chuprn_(char* base, const std::int64_t* position, const std::int64_t* length) {
  const iocv::Field field = iocv::field_at(base, *position, *length);
  iocv::upper_case(field.data(), static_cast<std::size_t>(field.width()));
}

void chuprc_(char* base, const std::int64_t* position, const std::int64_t* length, std::int64_t) {
  chuprn_(base, position, length);
}

}  // extern "C"
