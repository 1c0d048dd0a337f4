// The output dispatcher.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include "datetime/date_leaf.h"
#include "frame/leaf.h"
#include "frame/writer_steps.h"

namespace iocv {
namespace {

template <auto Plain>
constexpr WriteLeaf* first_leaf(Steps<Plain>) {
  return write_leaf<Plain>;
}

// What is left to do when a leaf's own attempt does not answer.
template <auto Plain>
constexpr WriteValues* rest(Steps<Plain>) {
  return write_values<Plain>;
}
template <auto Plain, class Attempt, class... More>
constexpr WriteValues* rest(Steps<Plain, Attempt, More...>) {
  return write_fast_values<Attempt, rest(Steps<Plain, More...>())>;
}

template <auto Plain, class Attempt, class... More>
constexpr WriteLeaf* first_leaf(Steps<Plain, Attempt, More...>) {
  return write_fast_leaf<Attempt, rest(Steps<Plain, More...>())>;
}

template <FormatCode Code, auto Core>
constexpr WriteLeaf* leaf_of(Row<Code, Core> row) {
  if constexpr (kWritesString<Core>) {
    return write_string_leaf<Core>;
  } else {
    return first_leaf(writer_steps(row));
  }
}

template <FormatCode Code, auto Core>
constexpr WriteLeaf* leaf_of(DateRow<Code, Core>) {
  return write_date_row<Core, Code>;
}

template <FormatCode Code>
constexpr WriteLeaf* leaf_of(Row<Code, write_time>) {
  return write_time_row<Code>;
}

}  // namespace

constexpr CodeTable<WriteLeaf> writers =
    WriterRows::by_code<WriteLeaf>([](auto row) { return leaf_of(row); });

// The library's own types leave it nothing to do but jump.
[[gnu::noinline]] void write_through_hook(const OBS* value, const std::int32_t* type,
                                          const std::int64_t* width, const std::int64_t* decimals,
                                          char* text, std::int64_t* status,
                                          std::int64_t text_length) {
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obocvext_(value, &code, width, decimals, text, text_length);
}

}  // namespace iocv

extern "C" void obocv_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status,
                       std::int64_t text_length) {
  if (iocv::WriteLeaf* leaf = iocv::writer_of(*type)) {
    return leaf(value, type, width, decimals, text, status);
  }
  return iocv::write_through_hook(value, type, width, decimals, text, status, text_length);
}
