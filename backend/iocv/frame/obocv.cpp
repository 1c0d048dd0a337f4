// The output dispatcher: which writer serves which format type.
#include <iocv/convert.h>

#include <array>

#include "frame/leaf.h"
#include "numeric/oboe.h"
#include "numeric/obof.h"
#include "numeric/obog.h"

namespace iocv {
namespace {

struct Row {
  FormatCode code;
  WriteLeaf* leaf;
};

constexpr Row kRows[] = {
    {FormatCode::f, write_leaf<write_f>},
    {FormatCode::e, write_leaf<write_e>},
    {FormatCode::general, write_leaf<write_general>},
};

constexpr std::size_t kCodes = static_cast<std::size_t>(FormatCode::general) + 1;

constexpr std::array<WriteLeaf*, kCodes> kWriters = [] {
  std::array<WriteLeaf*, kCodes> table = {};
  for (const Row& row : kRows) table[static_cast<std::size_t>(row.code)] = row.leaf;
  return table;
}();

}  // namespace

WriteLeaf* writer_of(std::int64_t code) noexcept {
  const auto index = static_cast<std::uint64_t>(code);  // a negative code is beyond the table
  return index < kWriters.size() ? kWriters[index] : nullptr;
}

}  // namespace iocv

extern "C" void obocv_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status,
                       std::int64_t text_length) {
  if (iocv::WriteLeaf* leaf = iocv::writer_of(*type)) {
    return leaf(value, type, width, decimals, text, status, text_length);
  }
  iocv::store(status, iocv::Status::no_converter);
}
