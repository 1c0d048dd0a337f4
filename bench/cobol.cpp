// The run-time library of COBOL, for packed, zoned and binary fields. A number comes and goes as a
// COMP-2, which is a double: COMPUTE ROUNDED writes, MOVE reads. Beside them the library's bridge
// to C, which takes whole numbers: there the program scales and rounds, and nothing tells whether a
// number has room.
//
// Its packed numbers above zero end in C where ours end in F; its zoned ones, under EBCDIC signs,
// in a letter where ours end in a digit; and it drops the minus of what rounds to zero. So fields
// are compared as the numbers that they hold.
#include <gmp.h>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>

extern "C" {
#include <libcob/common.h>
}

#include "harness.h"

namespace bench {
namespace {

void start_cobol() {
  static cob_module module = {};
  static cob_module* current = &module;
  static cob_global* global = nullptr;
  cob_init(0, nullptr);
  module.ebcdic_sign = COB_DISPLAY_SIGN_EBCDIC;
  module.decimal_point = '.';
  module.numeric_separator = ',';
  module.flag_binary_truncate = 0;  // all bits count, as in IB and PIB
  cob_module_enter(&current, &global, 0);
}

constexpr cob_field_attr kDouble{COB_TYPE_NUMERIC_DOUBLE, 34, 17,
                                 COB_FLAG_HAVE_SIGN | COB_FLAG_IS_FP, nullptr};
constexpr cob_field_attr kPacked{COB_TYPE_NUMERIC_PACKED, 15, 2, COB_FLAG_HAVE_SIGN, nullptr};
constexpr cob_field_attr kZoned{COB_TYPE_NUMERIC_DISPLAY, 8, 2, COB_FLAG_HAVE_SIGN, nullptr};
constexpr cob_field_attr kBinary{COB_TYPE_NUMERIC_BINARY, 9, 0,
                                 COB_FLAG_HAVE_SIGN | COB_FLAG_REAL_BINARY, nullptr};
constexpr cob_field_attr kUnsigned{COB_TYPE_NUMERIC_BINARY, 18, 0, COB_FLAG_REAL_BINARY, nullptr};

const cob_field_attr& attributes_of(const Row& row) {
  switch (row.type) {
    case VELT_Format::P: return kPacked;
    case VELT_Format::Z: return kZoned;
    case VELT_Format::IB: return kBinary;
    default: return kUnsigned;
  }
}

// As numbers, for which signs stand differently.
auto same_number(const Row& row) {
  return [row](std::string_view ours, std::string_view theirs) {
    return our_value(row, ours.data()) == our_value(row, theirs.data());
  };
}

// MOVE rounds twice on its way to a double.
bool same_but_for_last_bit(double ours, double theirs) {
  return std::fabs(ours - theirs) <= std::fabs(ours) * 0x1p-52;
}

unsigned char* bytes_of(char* field) { return reinterpret_cast<unsigned char*>(field); }

void add_compute(const Row& row) {
  static cob_decimal decimal;
  static const bool made = (cob_decimal_init(&decimal), true);
  static_cast<void>(made);
  const auto width = static_cast<std::size_t>(row.width);
  const cob_field_attr* attributes = &attributes_of(row);
  add_writer(
      row, "libcob",
      [=](double value, char* field) {
        cob_field number{sizeof value, reinterpret_cast<unsigned char*>(&value), &kDouble};
        cob_field target{width, bytes_of(field), attributes};
        cob_decimal_set_field(&decimal, &number);
        cob_decimal_get_field(&decimal, &target, COB_STORE_ROUND);
      },
      same_number(row));
  add_reader(
      row, "libcob",
      [=](const char* field) {
        double value = 0;
        cob_field source{width, bytes_of(const_cast<char*>(field)), attributes};
        cob_field number{sizeof value, reinterpret_cast<unsigned char*>(&value), &kDouble};
        cob_move(&source, &number);
        return value;
      },
      same_but_for_last_bit);
}

// Put is (whole number, field, width), Get (field, width) -> whole number.
template <class Put, class Get>
void add_bridge(const Row& row, Put put, Get get) {
  const auto width = static_cast<int>(row.width);
  const double scale = row.decimals == 2 ? 100 : 1;
  add_writer(
      row, "by hand: libcob put",
      [=](double value, char* field) { put(std::llround(value * scale), field, width); },
      same_number(row));
  add_reader(
      row, "by hand: libcob get",
      [=](const char* field) {
        return static_cast<double>(get(const_cast<char*>(field), width)) / scale;
      },
      same_but_for_last_bit);
}

}  // namespace

void add_cobol() {
  start_cobol();
  for (const Row& row : {kP8_2, kZ8_2, kIb4, kPib8}) add_compute(row);
  add_bridge(kP8_2, cob_put_s64_comp3, cob_get_s64_comp3);
  add_bridge(kZ8_2, cob_put_s64_pic9, cob_get_s64_pic9);
  add_bridge(kIb4, cob_put_s64_comp5, cob_get_s64_comp5);
  add_bridge(
      kPib8,
      [](long long value, void* field, int width) {
        cob_put_u64_comp5(static_cast<cob_u64_t>(value), field, width);
      },
      cob_get_u64_comp5);
}

}  // namespace bench
