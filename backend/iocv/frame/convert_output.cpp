// IocvConvertOutput: the dispatcher's writers with arguments and status by value.
#include <iocv/convert.h>

#include "datetime/date_leaf.h"
#include "frame/convert.h"
#include "frame/outlined.h"
#include "frame/writer_steps.h"

namespace iocv {
namespace {

using Convert = int(const OBS* value, int type, int decimals, char* text, unsigned width);

// What leaves its field to a work buffer, or has one wider than conversions see.
IOCV_OUTLINED int write_capped(const OBS* value, int type, int decimals, char* text,
                               unsigned width) {
  // The field as a position in 8-byte units of storage, which places the blank run of a wide field.
  const std::int64_t position =
      static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(text) % 8) + 1;
  const std::int64_t wide = width;
  const std::int64_t places = decimals;
  std::int64_t status = 0;
  obocvn_(value, &type, &wide, &places, text - position + 1, &position, &status);
  return static_cast<int>(status);
}

template <FormatCode Code, auto Plain>
IOCV_OUTLINED int write_plainly(const OBS* value, int type, int decimals, char* text,
                                unsigned width) {
  if (width > kWidestField) return write_capped(value, type, decimals, text, width);
  return static_cast<int>(
      call_writer<Plain>(Field(text, width), value->number, decimals, Code, Settings::current()));
}

template <class Attempt, Convert* kOtherwise>
IOCV_OUTLINED int write_attempting(const OBS* value, int type, int decimals, char* text,
                                   unsigned width) {
  if (attempted<Attempt>(text, width, decimals, value->number)) return 0;
  return kOtherwise(value, type, decimals, text, width);
}

template <FormatCode Code, auto Plain>
constexpr Convert* in_steps(Steps<Plain>) {
  return write_plainly<Code, Plain>;
}
template <FormatCode Code, auto Plain, class Attempt, class... More>
constexpr Convert* in_steps(Steps<Plain, Attempt, More...>) {
  return write_attempting<Attempt, in_steps<Code>(Steps<Plain, More...>())>;
}

template <auto Write>
IOCV_OUTLINED int write_bytes(const OBS* value, int type, int decimals, char* text,
                              unsigned width) {
  if (width > kWidestField) return write_capped(value, type, decimals, text, width);
  Write(Field(text, width), bytes_of(value));
  return 0;
}

// A writer of dates leaves the fields of its date in the exported records.
template <FormatCode Code, auto Plain>
IOCV_OUTLINED int write_date_plainly(const OBS* value, int type, int decimals, char* text,
                                     unsigned width) {
  if (width > kWidestField) return write_capped(value, type, decimals, text, width);
  const std::int64_t wide = width;
  const std::int64_t places = decimals;
  std::int64_t status = 0;
  write_date_leaf<Plain>(value, &type_code<Code>, &wide, &places, text, &status);
  return static_cast<int>(status);
}

template <FormatCode Code, auto Core>
IOCV_OUTLINED int write_date_of_any_width(const OBS* value, int type, int decimals, char* text,
                                          unsigned width) {
  using Way = FastWay<Core, Code>;
  if (write_and_record<typename Way::Attempt>(text, width, decimals, value->number)) return 0;
  return write_date_plainly<Code, Way::plain>(value, type, decimals, text, width);
}

template <FormatCode Code, auto Core>
IOCV_OUTLINED int write_date(const OBS* value, int type, int decimals, char* text, unsigned width) {
  using Way = FastWay<Core, Code>;
  if (width != Way::Attempt::kFull) {
    return write_date_of_any_width<Code, Core>(value, type, decimals, text, width);
  }
  if (write_full_and_record<typename Way::Attempt>(text, value->number)) return 0;
  return write_date_plainly<Code, Way::plain>(value, type, decimals, text, width);
}

template <FormatCode Code, auto Core>
constexpr Convert* convert_of(Row<Code, Core> row) {
  if constexpr (!works_in_place(Code)) {
    return write_capped;
  } else if constexpr (kWritesString<Core>) {
    return write_bytes<Core>;
  } else {
    return in_steps<Code>(writer_steps(row));
  }
}

template <FormatCode Code, auto Core>
constexpr Convert* convert_of(DateRow<Code, Core>) {
  return write_date<Code, Core>;
}

constexpr CodeTable<Convert> kConverts =
    WriterRows::by_code<Convert>([](auto row) { return convert_of(row); });

}  // namespace
}  // namespace iocv

extern "C" int IocvConvertOutput(const OBS* value, int type, int decimals, char* text,
                                 unsigned width) {
  if (auto* const convert = iocv::entry_of(iocv::kConverts, type)) {
    return convert(value, type, decimals, text, width);
  }
  return iocv::write_capped(value, type, decimals, text, width);
}
