// The dispatcher's rows without their fast paths.
#pragma once

#include <array>

#include "frame/reader_rows.h"
#include "frame/writer_rows.h"

namespace bench {

template <class Leaf>
struct PlainPath {
  iocv::FormatCode code;
  Leaf* leaf;
};

// clang-format off
inline constexpr PlainPath<iocv::WriteLeaf> kPlainWriters[] = {
    {iocv::FormatCode::f,        iocv::write_leaf<iocv::write_f_plain>},
    {iocv::FormatCode::e,        iocv::write_leaf<iocv::write_e_plain>},
    {iocv::FormatCode::comma,    iocv::write_leaf<iocv::write_currency_plain<iocv::FormatCode::comma>>},
    {iocv::FormatCode::date,     iocv::write_date_leaf<iocv::write_date_plain>},
    {iocv::FormatCode::adate,    iocv::write_date_leaf<iocv::write_numeric_date_plain>},
    {iocv::FormatCode::sdate,    iocv::write_date_leaf<iocv::write_numeric_date_plain>},
    {iocv::FormatCode::datetime, iocv::write_date_leaf<iocv::write_date_time_plain>},
    {iocv::FormatCode::time,     iocv::write_leaf<iocv::write_time_plain>},
    {iocv::FormatCode::p,        iocv::write_leaf<iocv::write_p_plain>},
    {iocv::FormatCode::z,        iocv::write_leaf<iocv::write_z_plain>},
    {iocv::FormatCode::ib,       iocv::write_leaf<iocv::write_ib_plain>},
    {iocv::FormatCode::pib,      iocv::write_leaf<iocv::write_pib_plain>},
};

inline constexpr PlainPath<iocv::ReadLeaf> kPlainReaders[] = {
    {iocv::FormatCode::f,        iocv::read_leaf<iocv::read_number_plain>},
    {iocv::FormatCode::e,        iocv::read_leaf<iocv::read_number_plain>},
    {iocv::FormatCode::comma,    iocv::read_leaf<iocv::read_number_plain>},
    {iocv::FormatCode::date,     iocv::read_leaf<iocv::read_date_plain>},
    {iocv::FormatCode::adate,    iocv::read_leaf<iocv::read_date_plain>},
    {iocv::FormatCode::sdate,    iocv::read_leaf<iocv::read_date_plain>},
    {iocv::FormatCode::datetime, iocv::read_leaf<iocv::read_datetime_plain>},
    {iocv::FormatCode::time,     iocv::read_leaf<iocv::read_time_plain>},
    {iocv::FormatCode::p,        iocv::read_leaf<iocv::read_p_plain>},
    {iocv::FormatCode::z,        iocv::read_leaf<iocv::read_z_plain>},
    {iocv::FormatCode::ib,       iocv::read_leaf<iocv::read_ib_plain>},
    {iocv::FormatCode::pib,      iocv::read_leaf<iocv::read_pib_plain>},
};
// clang-format on

// By type code.
template <class Leaf, std::size_t kSize>
constexpr auto by_code(const PlainPath<Leaf> (&paths)[kSize]) {
  std::array<Leaf*, 64> leaves = {};
  for (const PlainPath<Leaf>& path : paths) leaves[static_cast<std::size_t>(path.code)] = path.leaf;
  return leaves;
}

}  // namespace bench
