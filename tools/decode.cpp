#include "decode.h"

#include <iocv/convert.h>
#include <iocv/platform.h>
#include <iocv/status.h>

#include <algorithm>

#include "format_traits.h"
#include "rejects.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

static_assert(kLongestRecord < RecordReader::kBlock, "a line is never cut inside a field");

// These statuses tell of something wrong in a field whose value is good all the same.
constexpr bool keeps_value(int status) { return status == 1106 || status == 1158; }

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool is_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 128; });
}

std::size_t widest(const Layout& layout) {
  std::size_t bytes = 0;
  for (const LayoutField& field : layout.fields) {
    bytes = std::max<std::size_t>(bytes, field.format.Width());
  }
  return bytes;
}

}  // namespace

Decoder::Decoder(const Layout& layout)
    : record_length_(static_cast<std::size_t>(layout.record)),
      short_lines_(layout.short_lines),
      value_(widest(layout)) {
  for (const LayoutField& field : layout.fields) columns_.push_back(column_of(field));
}

Decoder::Column Decoder::column_of(const LayoutField& field) {
  const std::size_t width = field.format.Width();
  const bool hex = field.format.TypeEx() == VELT_Format::AHEX;
  return {.name = field.name,
          .format_text = format_to_text(field.format),
          .format = field.format,
          .show = field.show,
          .from = static_cast<std::size_t>(field.at - 1),
          .width = width,
          .string_bytes = hex ? width / 2 : width};
}

void Decoder::header(CsvRows& rows) const {
  for (const Column& column : columns_) rows.text(column.name);
  rows.end_row();
}

void Decoder::decode(const Record& record, CsvRows& rows, RejectLines& rejects) {
  if (record.bytes.size() < record_length_) return reject_short_record(record, rejects);
  for (const Column& column : columns_) {
    decode_field({record, column, field_of(record, column), rejects}, rows);
  }
  rows.end_row();
}

// The field's bytes: fewer than its width when the line ends before it does and may not.
std::string_view Decoder::field_of(const Record& record, const Column& column) {
  const std::size_t there = record.bytes.size();
  const std::string_view bytes =
      column.from < there ? record.bytes.substr(column.from, column.width) : std::string_view();
  if (bytes.size() == column.width || is_raw(column.format.TypeEx())) return bytes;
  const bool may_pad =
      bytes.empty() ? short_lines_ != ShortLines::reject : short_lines_ == ShortLines::pad;
  if (!may_pad) return bytes;
  padded_.assign(bytes);
  padded_.resize(column.width, ' ');
  return padded_;
}

void Decoder::decode_field(const Cell& cell, CsvRows& rows) {
  const Column& column = cell.column;
  if (cell.bytes.size() < column.width) {
    reject(cell, std::nullopt,
           "the line has " + std::to_string(cell.record.bytes.size()) +
               " bytes, the field ends at byte " + std::to_string(column.from + column.width));
    return rows.missing();
  }
  const int status = FromString(cell.bytes.data(), column.format, value_.get());
  if (status != 0) {
    reject(cell, status, iocv_status_text(status));
    if (!keeps_value(status)) return rows.missing();
  }
  if (column.format.IsString()) {
    show_text(cell, value_.trimmed(column.string_bytes), rows);
  } else if (is_missing(value_.number())) {
    rows.missing();
  } else if (column.show == Show::number) {
    rows.number(value_.number());
  } else if (column.show == Show::iso) {
    show_iso(cell, rows);
  } else {
    show_text(cell, without_blanks(cell.bytes), rows);
  }
}

void Decoder::show_text(const Cell& cell, std::string_view text, CsvRows& rows) {
  if (is_ascii(text)) return rows.text(text);
  if (VELTMBGenericToU8(scratch_, std::string(text)) != 0) {
    reject(cell, std::nullopt, "a byte is no character of the code page; it became U+FFFD");
  }
  rows.text(scratch_);
}

void Decoder::show_iso(const Cell& cell, CsvRows& rows) {
  scratch_.clear();
  if (append_iso(scratch_, value_.number(), iso_form(cell.column.format.TypeEx()))) {
    return rows.text(scratch_);
  }
  reject(cell, std::nullopt, "the value is too large for its ISO 8601 form");
  rows.missing();
}

void Decoder::reject(const Cell& cell, std::optional<std::int64_t> status,
                     std::string_view message) {
  // The bytes of the file, not those of a padded field.
  const std::string_view record = cell.record.bytes;
  const std::size_t from = std::min(cell.column.from, record.size());
  append_reject(cell.rejects.text,
                {.record = cell.record.number,
                 .offset = cell.record.offset + static_cast<std::int64_t>(cell.column.from),
                 .field = cell.column.name,
                 .format = cell.column.format_text,
                 .raw = record.substr(from, cell.column.width),
                 .status = status,
                 .message = message});
  ++cell.rejects.count;
}

void Decoder::reject_short_record(const Record& record, RejectLines& rejects) const {
  const std::string message = "the last record has " + std::to_string(record.bytes.size()) +
                              " bytes instead of " + std::to_string(record_length_);
  append_reject(rejects.text, {.record = record.number,
                               .offset = record.offset,
                               .field = std::nullopt,
                               .format = std::nullopt,
                               .raw = record.bytes,
                               .status = std::nullopt,
                               .message = message});
  ++rejects.count;
}

}  // namespace iocv::tool
