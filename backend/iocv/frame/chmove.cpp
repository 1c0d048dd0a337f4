// Moves and fills of bytes and of whole units.
#include <iocv/fields.h>

#include <cstring>

#include "frame/place.h"

namespace {

using iocv::field_at;
using iocv::text_at;

constexpr char kUnknownCode = '?';

constexpr char byte_in(std::int64_t code, std::int64_t highest) noexcept {
  return code >= 0 && code <= highest ? static_cast<char>(code) : kUnknownCode;
}

void move_bytes(const char* source, std::int64_t source_position, char* destination,
                std::int64_t destination_position, std::int64_t length) noexcept {
  const std::string_view text = text_at(source, source_position, length);
  if (text.empty()) return;
  std::memmove(field_at(destination, destination_position, length).data(), text.data(),
               text.size());
}

void store_byte(char* base, std::int64_t position, std::int64_t code) noexcept {
  field_at(base, position, 1).fill(byte_in(code, 255));
}

template <class Unit>
void move_units(const void* source, void* destination, std::int64_t count) noexcept {
  if (count < 1) return;
  std::memmove(destination, source, static_cast<std::size_t>(count) * sizeof(Unit));
}

template <class Unit>
void zero_units(void* base, std::int64_t count) noexcept {
  if (count < 1) return;
  std::memset(base, 0, static_cast<std::size_t>(count) * sizeof(Unit));
}

}  // namespace

extern "C" {

void chmvnn_(const char* source, const std::int64_t* source_position, char* destination,
             const std::int64_t* destination_position, const std::int64_t* length) {
  move_bytes(source, *source_position, destination, *destination_position, *length);
}

void chmvcn_(const char* source, const std::int64_t* source_position, char* destination,
             const std::int64_t* destination_position, const std::int64_t* length, std::int64_t) {
  move_bytes(source, *source_position, destination, *destination_position, *length);
}

void chmvnc_(const char* source, const std::int64_t* source_position, char* destination,
             const std::int64_t* destination_position, const std::int64_t* length, std::int64_t) {
  move_bytes(source, *source_position, destination, *destination_position, *length);
}

void chmvcc_(const char* source, const std::int64_t* source_position, char* destination,
             const std::int64_t* destination_position, const std::int64_t* length, std::int64_t,
             std::int64_t) {
  move_bytes(source, *source_position, destination, *destination_position, *length);
}

void chnfln_(char* base, const std::int64_t* position, const std::int64_t* length,
             const std::int64_t* code) {
  field_at(base, *position, *length).fill(byte_in(*code, 127));
}

void chnflc_(char* base, const std::int64_t* position, const std::int64_t* length,
             const std::int64_t* code, std::int64_t) {
  chnfln_(base, position, length, code);
}

void chblkn_(char* base, const std::int64_t* position, const std::int64_t* length) {
  field_at(base, *position, *length).blank();
}

void chblkc_(char* base, const std::int64_t* position, const std::int64_t* length, std::int64_t) {
  chblkn_(base, position, length);
}

void chnstn_(char* base, const std::int64_t* position, const std::int64_t* code) {
  store_byte(base, *position, *code);
}

void chnstc_(char* base, const std::int64_t* position, const std::int64_t* code, std::int64_t) {
  store_byte(base, *position, *code);
}

std::int64_t icnumn_(const char* base, const std::int64_t* position) {
  return static_cast<unsigned char>(*text_at(base, *position, 1).data());
}

std::int64_t icnumc_(const char* base, const std::int64_t* position, std::int64_t) {
  return icnumn_(base, position);
}

void imove_(const void* source, void* destination, const std::int64_t* count) {
  move_units<std::int64_t>(source, destination, *count);
}

void simove_(const void* source, void* destination, const std::int64_t* count) {
  move_units<std::int64_t>(source, destination, *count);
}

void lrmove_(const void* source, void* destination, const std::int64_t* count) {
  move_units<double>(source, destination, *count);
}

void obmove_(const void* source, void* destination, const std::int64_t* count) {
  move_units<OBS>(source, destination, *count);
}

void rmove_(const void* source, void* destination, const std::int64_t* count) {
  move_units<float>(source, destination, *count);
}

void izero_(void* base, const std::int64_t* count) { zero_units<std::int64_t>(base, *count); }
void sizero_(void* base, const std::int64_t* count) { zero_units<std::int64_t>(base, *count); }
void lrzero_(void* base, const std::int64_t* count) { zero_units<double>(base, *count); }
void obzero_(void* base, const std::int64_t* count) { zero_units<OBS>(base, *count); }
void rzero_(void* base, const std::int64_t* count) { zero_units<float>(base, *count); }

void bkcent_() {}
void bktran_() {}

}  // extern "C"
