// The input dispatcher.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include "datetime/date_leaf.h"
#include "frame/leaf.h"
#include "frame/reader_rows.h"

namespace iocv {
namespace {

template <FormatCode Code, auto Core>
constexpr ReadLeaf* leaf_of(Row<Code, Core>) {
  if constexpr (kReadsString<Core>) {
    return read_string_leaf<Core>;
  } else if constexpr (HasFastWay<Core, Code>) {
    return read_date_row<Core, Code>;
  } else {
    return read_leaf<Core>;
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
