#include "decode.h"

#include <iocv/convert.h>
#include <iocv/platform.h>
#include <iocv/status.h>

#include <algorithm>

#include "format_traits.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool is_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 128; });
}

}  // namespace

Decoder::Decoder(const Layout& layout)
    : fields_(layout), record_length_(static_cast<std::size_t>(layout.record)) {}

void Decoder::decode_some(const Block& block, std::size_t first, std::size_t count, Rows& rows,
                          const std::string& out, RejectLines& rejects) {
  for (const std::size_t end = first + count; first < end; first += fields_.run()) {
    const std::size_t run = std::min(fields_.run(), end - first);
    fields_.read(block, first, run);
    const RecordRun records{fields_, block, first, run};
    for (std::size_t i = rows.take_ordinary(records, 0); i < run;
         i += 1 + rows.take_ordinary(records, i + 1)) {
      const std::size_t output_before = out.size();
      const std::int64_t rejects_before = rejects.count;
      decode_record(block.record(first + i), i, rows, rejects);
      if (rejects.count == rejects_before) continue;
      rejects.records.push_back({first + i, output_before, rejects.text.size(), rejects.count});
    }
  }
}

void Decoder::decode_record(const Record& record, std::size_t index, Rows& rows,
                            RejectLines& rejects) {
  if (record.bytes.size() < record_length_) return reject_short_record(record, rejects);
  const std::vector<Column>& columns = fields_.columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Cell cell{record, columns[i], rejects};
    const int status = fields_.status(i, index);
    if (status == kAbsent) {
      reject_absent(cell);
      rows.missing();
    } else if (columns[i].string) {
      decode_string(cell, rows);
    } else {
      decode_number(cell, fields_.value(i, index), status, rows);
    }
  }
  rows.end_row();
}

void Decoder::decode_number(const Cell& cell, double value, int status, Rows& rows) {
  if (status != 0) {
    reject(cell, status, iocv_status_text(status));
    if (!keeps_value(status)) return rows.missing();
  }
  if (is_missing(value)) {
    rows.missing();
  } else if (cell.column.show == Show::number) {
    rows.number(value);
  } else if (cell.column.show == Show::iso) {
    show_iso(cell, value, rows);
  } else {
    show_text(cell, without_blanks(fields_.field(cell.record, cell.column)), rows);
  }
}

void Decoder::decode_string(const Cell& cell, Rows& rows) {
  int status = 0;
  const std::string_view text =
      fields_.string(cell.column, fields_.field(cell.record, cell.column), status);
  if (status != 0) {
    reject(cell, status, iocv_status_text(status));
    if (!keeps_value(status)) return rows.missing();
  }
  show_text(cell, text, rows);
}

void Decoder::show_text(const Cell& cell, std::string_view text, Rows& rows) {
  if (is_ascii(text)) return rows.text(text);
  if (VELTMBGenericToU8(scratch_, std::string(text)) != 0) {
    reject(cell, std::nullopt, "a byte is no character of the code page; it became U+FFFD");
  }
  rows.text(scratch_);
}

void Decoder::show_iso(const Cell& cell, double value, Rows& rows) {
  scratch_.clear();
  if (append_iso(scratch_, value, iso_form(cell.column.format.TypeEx()))) {
    return rows.moment(scratch_);
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

void Decoder::reject_absent(const Cell& cell) {
  reject(cell, std::nullopt,
         "the line has " + std::to_string(cell.record.bytes.size()) +
             " bytes, the field ends at byte " +
             std::to_string(cell.column.from + cell.column.width));
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
