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

// Writers with fast paths, in the order in which these are tried.

constexpr WriteLeaf* leaf_of(Row<FormatCode::f, write_f>) {
  return write_fast_leaf<
      write_number_fast<Reach::nine_digits, CurrentSettings>,
      write_fast_values<write_number_fast<Reach::sixteen_digits, CurrentSettings>,
                        write_values<write_f_plain>>>;
}

constexpr WriteLeaf* leaf_of(Row<FormatCode::pct, write_percent>) {
  return write_fast_leaf<
      write_percent_fast<Reach::nine_digits, CurrentSettings>,
      write_fast_values<write_percent_fast<Reach::sixteen_digits, CurrentSettings>,
                        write_values<write_percent_plain>>>;
}

constexpr WriteLeaf* leaf_of(Row<FormatCode::e, write_e>) {
  return write_fast_leaf<write_exponential_fast<CurrentSettings>, write_values<write_e_plain>>;
}

template <FormatCode Code, GroupedStyle kStyle>
constexpr WriteLeaf* kGroupedLeaf = write_fast_leaf<
    write_grouped_fast<kStyle, Reach::nine_digits, CurrentSettings>,
    write_fast_values<write_grouped_fast<kStyle, Reach::sixteen_digits, CurrentSettings>,
                      write_values<write_currency_plain<Code>>>>;

constexpr WriteLeaf* leaf_of(Row<FormatCode::comma, write_currency>) {
  return kGroupedLeaf<FormatCode::comma, kCommaStyle>;
}
constexpr WriteLeaf* leaf_of(Row<FormatCode::dot, write_currency>) {
  return kGroupedLeaf<FormatCode::dot, kDotStyle>;
}
constexpr WriteLeaf* leaf_of(Row<FormatCode::dollar, write_currency>) {
  return kGroupedLeaf<FormatCode::dollar, kDollarStyle>;
}

constexpr WriteLeaf* leaf_of(Row<FormatCode::z, write_z>) {
  return write_fast_leaf<write_zoned_fast<Reach::nine_digits, CurrentSettings>,
                         write_fast_values<write_zoned_fast<Reach::sixteen_digits, CurrentSettings>,
                                           write_values<write_z_plain>>>;
}

constexpr WriteLeaf* leaf_of(Row<FormatCode::p, write_p>) {
  return write_fast_leaf<write_packed_fast<CurrentSettings>, write_values<write_p_plain>>;
}
constexpr WriteLeaf* leaf_of(Row<FormatCode::ib, write_ib>) {
  return write_fast_leaf<write_binary_fast<true, CurrentSettings>, write_values<write_ib_plain>>;
}
constexpr WriteLeaf* leaf_of(Row<FormatCode::pib, write_pib>) {
  return write_fast_leaf<write_binary_fast<false, CurrentSettings>, write_values<write_pib_plain>>;
}

// Apart, so that dispatching itself needs no stack.
[[gnu::noinline]] void write_through_hook(const OBS* value, const std::int32_t* type,
                                          const std::int64_t* width, const std::int64_t* decimals,
                                          char* text, std::int64_t* status,
                                          std::int64_t text_length) {
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obocvext_(value, &code, width, decimals, text, text_length);
}

}  // namespace

constexpr CodeTable<WriteLeaf> writers =
    WriterRows::by_code<WriteLeaf>([](auto row) { return leaf_of(row); });

}  // namespace iocv

extern "C" void obocv_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status,
                       std::int64_t text_length) {
  iocv::WriteLeaf* leaf = iocv::writer_of(*type);
  return (leaf ? leaf : iocv::write_through_hook)(value, type, width, decimals, text, status,
                                                  text_length);
}
