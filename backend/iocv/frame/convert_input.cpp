// IocvConvertInput: the dispatcher's readers with arguments and status by value.
#include <iocv/convert.h>

#include "frame/attempts.h"
#include "frame/convert.h"
#include "frame/outlined.h"
#include "frame/reader_steps.h"

namespace iocv {
namespace {

using Convert = int(const char* text, unsigned width, int type, int decimals, OBS* value);

// What reads its field from a work buffer, or has one wider than conversions see.
IOCV_OUTLINED int read_capped(const char* text, unsigned width, int type, int decimals,
                              OBS* value) {
  const std::int64_t position = 1;
  const std::int64_t wide = width;
  const std::int64_t places = decimals;
  std::int64_t status = 0;
  obicvn_(text, &position, &type, &wide, &places, value, &status);
  return static_cast<int>(status);
}

// What steps of one code pass to each other; none looks at the type.
template <FormatCode Code, auto Plain>
IOCV_OUTLINED int read_plainly(const char* text, unsigned width, int, int decimals, OBS* value) {
  if (width > kWidestField) return read_capped(text, width, type_code<Code>, decimals, value);
  const auto result =
      call_reader<Plain>(input_field(text, width), decimals, Code, Settings::current());
  value->number = result.value;
  return static_cast<int>(result.status);
}

template <class Attempt, Convert* kOtherwise>
IOCV_OUTLINED int read_attempting(const char* text, unsigned width, int, int decimals, OBS* value) {
  Read<double> result;
  if (!read_by<Attempt>(text, width, decimals, Settings::current(), result)) {
    return kOtherwise(text, width, 0, decimals, value);
  }
  value->number = result.value;
  return static_cast<int>(result.status);
}

template <FormatCode Code, auto Plain>
constexpr Convert* in_steps(Steps<Plain>) {
  return read_plainly<Code, Plain>;
}
template <FormatCode Code, auto Plain, class Attempt, class... More>
constexpr Convert* in_steps(Steps<Plain, Attempt, More...>) {
  return read_attempting<Attempt, in_steps<Code>(Steps<Plain, More...>())>;
}

template <auto Read>
IOCV_OUTLINED int read_bytes(const char* text, unsigned width, int type, int decimals, OBS* value) {
  if (width > kWidestField) return read_capped(text, width, type, decimals, value);
  return static_cast<int>(Read(input_field(text, width), bytes_of(value)));
}

template <FormatCode Code, auto Core>
constexpr Convert* convert_of(Row<Code, Core> row) {
  if constexpr (!works_in_place(Code)) {
    return read_capped;
  } else if constexpr (kReadsString<Core>) {
    return read_bytes<Core>;
  } else {
    return in_steps<Code>(reader_steps(row));
  }
}

constexpr CodeTable<Convert> kConverts =
    ReaderRows::by_code<Convert>([](auto row) { return convert_of(row); });

}  // namespace
}  // namespace iocv

extern "C" int IocvConvertInput(const char* text, unsigned width, int type, int decimals,
                                OBS* value) {
  if (auto* const convert = iocv::entry_of(iocv::kConverts, type)) {
    return convert(text, width, type, decimals, value);
  }
  return iocv::read_capped(text, width, type, decimals, value);
}
