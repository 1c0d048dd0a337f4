// The doors above the dispatchers: the capped layer, the plain layer and the object layer.
//
// Fields are converted where they lie: the bytes and statuses are those of a conversion through a
// work buffer, without its copies. Two kinds of codes use a work buffer: those that go to the
// extension hook, for a host's converter may count on the zero byte behind the text and on the room
// behind the field, and AHEX, which makes two bytes of one: where text and value share storage, it
// would overwrite what it has still to read.
#include <iocv/convert.h>

#include <algorithm>
#include <cstring>

#include "frame/constants.h"
#include "frame/leaf.h"

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
bool works_in_place(Leaf* leaf, int code) {
  return leaf && code != VELT_Format::AHEX;
}

// The ordinary case in a function of its own is one call deep.
int write_in_place(iocv::WriteLeaf* leaf, const OBS* value, std::int32_t type, std::int64_t width,
                   std::int64_t decimals, char* text) {
  std::int64_t status = 0;
  leaf(value, &type, &width, &decimals, text, &status, kWidestField);
  return static_cast<int>(status);
}

int read_in_place(iocv::ReadLeaf* leaf, const char* text, std::int32_t type, std::int64_t width,
                  std::int64_t decimals, OBS* value) {
  std::int64_t status = 0;
  leaf(text, &type, &width, &decimals, value, &status, kWidestField);
  return static_cast<int>(status);
}

bool is_custom_currency(int code) { return code >= VELT_Format::CCA && code <= VELT_Format::CCE; }

}  // namespace

extern "C" {

void obicvn_(const char* base, const std::int64_t* position, const std::int32_t* type,
             const std::int64_t* width, const std::int64_t* decimals, OBS* value,
             std::int64_t* status) {
  const char* field = base + *position - 1;
  const std::int64_t used = std::min(*width, kWidestField);
  if (works_in_place(iocv::reader_of(*type), *type)) {
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
  if (works_in_place(iocv::writer_of(*type), *type)) {
    obocv_(value, type, &used, decimals, field, status, kWidestField);
  } else {
    write_through_buffer(value, type, &used, decimals, field, status);
  }
  // The rest of a wide field counts from the base, not from the field: existing files show it so.
  if (*width > used) std::memset(base + used, ' ', bytes(*width - used));
}

int IocvConvertInput(const char* text, unsigned width, int type, int decimals, OBS* value) {
  if (iocv::ReadLeaf* leaf = iocv::reader_of(type);
      works_in_place(leaf, type) && width <= kWidestField) [[likely]] {
    return read_in_place(leaf, text, type, width, decimals, value);
  }
  const std::int64_t position = 1;
  const std::int64_t wide = width;
  const std::int64_t places = decimals;
  std::int64_t status = 0;
  obicvn_(text, &position, &type, &wide, &places, value, &status);
  return static_cast<int>(status);
}

int IocvConvertOutput(const OBS* value, int type, int decimals, char* text, unsigned width) {
  if (iocv::WriteLeaf* leaf = iocv::writer_of(type);
      works_in_place(leaf, type) && width <= kWidestField) [[likely]] {
    return write_in_place(leaf, value, type, width, decimals, text);
  }
  // The field as a position in 8-byte units of storage, which places the blank run of a wide field.
  const std::int64_t position =
      static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(text) % 8) + 1;
  const std::int64_t wide = width;
  const std::int64_t places = decimals;
  std::int64_t status = 0;
  obocvn_(value, &type, &wide, &places, text - position + 1, &position, &status);
  return static_cast<int>(status);
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
