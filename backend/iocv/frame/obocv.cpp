// The output dispatcher.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include "frame/leaf.h"
#include "frame/writer_rows.h"

namespace iocv {
namespace {

template <FormatCode Code, auto Core>
constexpr WriteLeaf* leaf_of(Row<Code, Core>) {
  if constexpr (kWritesString<Core>) {
    return write_string_leaf<Core>;
  } else {
    return write_leaf<Core>;
  }
}

template <FormatCode Code, auto Core>
constexpr WriteLeaf* leaf_of(DateRow<Code, Core>) {
  return write_date_leaf<Core>;
}

constexpr CodeTable<WriteLeaf> kWriters =
    WriterRows::by_code<WriteLeaf>([](auto row) { return leaf_of(row); });

}  // namespace

WriteLeaf* writer_of(std::int64_t code) noexcept { return entry_of(kWriters, code); }

}  // namespace iocv

extern "C" void obocv_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status,
                       std::int64_t text_length) {
  if (iocv::WriteLeaf* leaf = iocv::writer_of(*type)) {
    return leaf(value, type, width, decimals, text, status, text_length);
  }
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obocvext_(value, &code, width, decimals, text, text_length);
}
