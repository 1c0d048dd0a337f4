// The capped layer and the object layer.
#include <iocv/convert.h>

#include <algorithm>
#include <cstring>

#include "frame/convert.h"

namespace {

using iocv::kWidestField;

constexpr std::size_t bytes(std::int64_t count) {
  return static_cast<std::size_t>(std::max<std::int64_t>(count, 0));
}

void read_through_buffer(const char* field, const std::int32_t* type, const std::int64_t* width,
                         const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  char buffer[kWidestField + 1];
  std::memcpy(buffer, field, bytes(*width));
  buffer[bytes(*width)] = 0;
  obicv_(buffer, type, width, decimals, value, status, kWidestField);
}

void write_through_buffer(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                          const std::int64_t* decimals, char* field, std::int64_t* status) {
  char buffer[kWidestField + 1];
  std::memcpy(buffer, field, bytes(*width));  // a converter that writes nothing leaves the field
  obocv_(value, type, width, decimals, buffer, status, kWidestField);
  std::memcpy(field, buffer, bytes(*width));
}

template <class Leaf>
bool in_place(Leaf* leaf, std::int32_t code) {
  return leaf && iocv::works_in_place(static_cast<iocv::FormatCode>(code));
}

bool is_custom_currency(int code) { return code >= VELT_Format::CCA && code <= VELT_Format::CCE; }

}  // namespace

extern "C" {

void obicvn_(const char* base, const std::int64_t* position, const std::int32_t* type,
             const std::int64_t* width, const std::int64_t* decimals, OBS* value,
             std::int64_t* status) {
  const char* field = base + *position - 1;
  const std::int64_t used = std::min(*width, kWidestField);
  if (in_place(iocv::reader_of(*type), *type)) {
    obicv_(field, type, &used, decimals, value, status, kWidestField);
  } else {
    read_through_buffer(field, type, &used, decimals, value, status);
  }
}

void obocvn_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
             const std::int64_t* decimals, char* base, const std::int64_t* position,
             std::int64_t* status) {
  char* field = base + *position - 1;
  const std::int64_t used = std::min(*width, kWidestField);
  if (in_place(iocv::writer_of(*type), *type)) {
    obocv_(value, type, &used, decimals, field, status, kWidestField);
  } else {
    write_through_buffer(value, type, &used, decimals, field, status);
  }
  // The rest of a wide field counts from the base, not from the field: existing files show it so.
  if (*width > used) std::memset(base + used, ' ', bytes(*width - used));
}

}  // extern "C"

int ToString(const OBS* value, const VELT_Format& format, char* text) {
  return IocvConvertOutput(value, format.TypeEx(), format.Decimals(), text, format.Width());
}

std::string ToString(const OBS* value, const VELT_Format& format) {
  std::string field(format.Width(), ' ');
  ToString(value, format, field.data());
  const std::size_t first = field.find_first_not_of(" \t");
  if (first == field.npos) return {};
  return field.substr(first, field.find_last_not_of(" \t") - first + 1);
}

int FromString(const char* text, const VELT_Format& format, OBS* value) {
  const int code = is_custom_currency(format.TypeEx()) ? VELT_Format::F : format.TypeEx();
  return IocvConvertInput(text, format.Width(), code, format.Decimals(), value);
}
