// The input dispatcher.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include "datetime/date_leaf.h"
#include "frame/attempts.h"
#include "frame/leaf.h"
#include "frame/outlined.h"
#include "frame/reader_steps.h"

namespace iocv {
namespace {

// Readers with fast paths: a leaf makes its own attempt and passes on, by value, what that does not
// answer, by a mere jump: the other arguments stay in the registers where the dispatcher has them.
using ReadValues = void(const char* text, std::int64_t, std::int64_t width, std::int64_t decimals,
                        OBS* value, std::int64_t* status);

template <FormatCode Code, auto Plain>
IOCV_OUTLINED void read_values(const char* text, std::int64_t, std::int64_t width,
                               std::int64_t decimals, OBS* value, std::int64_t* status) {
  const auto result =
      call_reader<Plain>(input_field(text, width), decimals, Code, Settings::current());
  value->number = result.value;
  store(status, result.status);
}

template <class Attempt, ReadValues* kOtherwise>
IOCV_OUTLINED void read_fast_values(const char* text, std::int64_t, std::int64_t width,
                                    std::int64_t decimals, OBS* value, std::int64_t* status) {
  Read<double> result;
  if (!read_by<Attempt>(text, width, decimals, Settings::current(), result)) {
    return kOtherwise(text, 0, width, decimals, value, status);
  }
  value->number = result.value;
  store(status, result.status);
}

template <class Attempt, ReadValues* kOtherwise>
void read_fast_leaf(const char* text, const std::int32_t*, const std::int64_t* width,
                    const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  Read<double> result;
  if (!read_by<Attempt>(text, *width, *decimals, Settings::current(), result)) {
    return kOtherwise(text, 0, *width, *decimals, value, status);
  }
  value->number = result.value;
  store(status, result.status);
}

template <FormatCode Code, auto Plain>
constexpr ReadValues* rest(Steps<Plain>) {
  return read_values<Code, Plain>;
}
template <FormatCode Code, auto Plain, class Attempt, class... More>
constexpr ReadValues* rest(Steps<Plain, Attempt, More...>) {
  return read_fast_values<Attempt, rest<Code>(Steps<Plain, More...>())>;
}

template <FormatCode Code, auto Plain>
constexpr ReadLeaf* first_leaf(Steps<Plain>) {
  return read_leaf<Plain>;
}
template <FormatCode Code, auto Plain, class Attempt, class... More>
constexpr ReadLeaf* first_leaf(Steps<Plain, Attempt, More...>) {
  return read_fast_leaf<Attempt, rest<Code>(Steps<Plain, More...>())>;
}

template <FormatCode Code, auto Core>
constexpr ReadLeaf* leaf_of(Row<Code, Core> row) {
  if constexpr (kReadsString<Core>) {
    return read_string_leaf<Core>;
  } else if constexpr (HasFastWay<Core, Code>) {
    return read_date_row<Core, Code>;
  } else {
    return first_leaf<Code>(reader_steps(row));
  }
}

}  // namespace

constinit const CodeTable<ReadLeaf> readers =
    ReaderRows::by_code<ReadLeaf>([](auto row) { return leaf_of(row); });

// The library's own types leave it nothing to do but jump.
[[gnu::noinline]] void read_through_hook(const char* text, const std::int32_t* type,
                                         const std::int64_t* width, const std::int64_t* decimals,
                                         OBS* value, std::int64_t* status,
                                         std::int64_t text_length) {
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obicvext_(text, &code, width, decimals, value, text_length);
}

}  // namespace iocv

extern "C" void obicv_(const char* text, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, OBS* value, std::int64_t* status,
                       std::int64_t text_length) {
  if (iocv::ReadLeaf* leaf = iocv::reader_of(*type)) {
    return leaf(text, type, width, decimals, value, status);
  }
  return iocv::read_through_hook(text, type, width, decimals, value, status, text_length);
}
