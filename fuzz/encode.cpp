// CSV and JSON Lines of any text, encoded under layouts of all kinds of fields; what is taken is
// decoded, shown as rows of the same form and encoded again.
#include "encode.h"

#include <iocv/status.h>

#include <algorithm>
#include <cstring>

#include "csv.h"
#include "decode.h"
#include "failure.h"
#include "harness.h"
#include "json_rows.h"
#include "memory_file.h"
#include "value_text.h"

namespace {

using namespace iocv::tool;

struct Kind {
  VELT_Format format;
  Show show;
};

constexpr Show kNumber = Show::number;
constexpr Show kIso = Show::iso;
constexpr Show kText = Show::text;

const Kind kKinds[] = {
    {{VELT_Format::F, 8, 2}, kNumber},      {{VELT_Format::F, 5, 0}, kText},
    {{VELT_Format::F, 24, 10}, kNumber},    {{VELT_Format::COMMA, 9, 2}, kNumber},
    {{VELT_Format::DOT, 9, 2}, kText},      {{VELT_Format::DOLLAR, 10, 2}, kNumber},
    {{VELT_Format::PCT, 8, 1}, kNumber},    {{VELT_Format::E, 10, 3}, kNumber},
    {{VELT_Format::CCA, 10, 2}, kNumber},   {{VELT_Format::Z, 6, 2}, kNumber},
    {{VELT_Format::N, 4, 0}, kNumber},      {{VELT_Format::P, 3, 1}, kNumber},
    {{VELT_Format::PK, 3, 0}, kNumber},     {{VELT_Format::IB, 2, 0}, kNumber},
    {{VELT_Format::IB, 8, 3}, kNumber},     {{VELT_Format::PIB, 3, 1}, kNumber},
    {{VELT_Format::RB, 8, 0}, kNumber},     {{VELT_Format::RB, 4, 0}, kNumber},
    {{VELT_Format::PIBHEX, 4, 0}, kNumber}, {{VELT_Format::RBHEX, 16, 0}, kNumber},
    {{VELT_Format::A, 1, 0}, kText},        {{VELT_Format::A, 12, 0}, kText},
    {{VELT_Format::AHEX, 6, 0}, kText},     {{VELT_Format::DATE, 11, 0}, kIso},
    {{VELT_Format::DATE, 9, 0}, kNumber},   {{VELT_Format::ADATE, 10, 0}, kIso},
    {{VELT_Format::EDATE, 8, 0}, kText},    {{VELT_Format::SDATE, 10, 0}, kIso},
    {{VELT_Format::JDATE, 7, 0}, kIso},     {{VELT_Format::QYR, 8, 0}, kText},
    {{VELT_Format::MOYR, 8, 0}, kIso},      {{VELT_Format::WKYR, 10, 0}, kText},
    {{VELT_Format::DATETIME, 22, 1}, kIso}, {{VELT_Format::DATETIME, 17, 0}, kNumber},
    {{VELT_Format::TIME, 11, 2}, kIso},     {{VELT_Format::TIME, 5, 0}, kText},
    {{VELT_Format::DTIME, 15, 2}, kIso},    {{VELT_Format::DTIME, 9, 0}, kText},
    {{VELT_Format::WKDAY, 9, 0}, kText},    {{VELT_Format::MONTH, 3, 0}, kText},
};

// Two bytes for the settings, then a byte a field. Fields may overlap when they are told to.
Layout layout_of(fuzz::Input& input) {
  constexpr const char* kPages[] = {"UTF-8", "windows-1252", "ISO-8859-1", "GB18030"};
  Layout layout;
  const unsigned flags = input.byte();
  layout.settings.decimal = (flags & 1) != 0 ? ',' : '.';
  layout.settings.leading_zero = (flags & 2) != 0;
  layout.settings.missing = (flags & 4) != 0 ? '#' : '.';
  layout.settings.code_page = kPages[(flags >> 3) & 3];
  layout.settings.century = (flags & 32) != 0 ? 1950 : 1900;
  layout.settings.currencies[0] = (flags & 64) != 0 ? "-,a b,%,)" : "(,*,,)";
  const unsigned shape = input.byte();
  std::int64_t end = 0;
  for (unsigned i = 0; i <= shape % 4; ++i) {
    const Kind& kind = input.pick(kKinds);
    const bool over = (shape & 64) != 0 && i == 1;
    const std::string name(1, static_cast<char>('a' + i));
    layout.fields.push_back({name, over ? 1 : end + 1, kind.format, kind.show});
    end = std::max(end, layout.fields.back().end());
  }
  layout.crlf = (shape & 8) != 0;
  layout.record = (shape & 16) != 0 ? end + (shape & 32 ? 2 : 0) : 0;
  return layout;
}

// Readers know no currency's affixes.
bool is_readable(const Layout& layout) {
  return std::none_of(layout.fields.begin(), layout.fields.end(), [](const LayoutField& field) {
    return field.format.TypeEx() == VELT_Format::CCA;
  });
}

std::unique_ptr<RowParser> parser_of(const RowReader& reader, const Layout& layout, bool json) {
  return json ? json_parser(layout) : csv_parser(reader.head(), layout);
}

void check(const Refusal& refused) {
  FUZZ_REQUIRE(!refused.message.empty());
  if (!refused.status) return;
  FUZZ_REQUIRE(*refused.status != 0);
  FUZZ_REQUIRE(std::strcmp(iocv_status_text(*refused.status), "unknown status") != 0);
}

// Whether the row makes a record; a field that is refused stays as it was.
bool encode(Encoder& encoder, const std::vector<Given>& row) {
  bool whole = true;
  encoder.begin();
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string before(encoder.record());
    const std::optional<Refusal> refused = encoder.put(i, row[i]);
    if (!refused) continue;
    whole = false;
    check(*refused);
    FUZZ_REQUIRE(encoder.record() == before);
  }
  return whole;
}

// Decodes records to a file of rows; all their fields are good.
std::string decode(const Layout& layout, std::string_view records, bool json) {
  const fuzz::MemoryFile memory(records);
  InputFile file(memory.path());
  RecordReader reader(file, {.length = layout.record, .crlf = layout.crlf});
  Decoder decoder(layout);
  std::vector<std::string> names;
  std::string text;
  for (const LayoutField& field : layout.fields) {
    names.push_back(field.name);
    if (!json) text += (text.empty() ? "" : ",") + field.name;
  }
  if (!json) text += '\n';
  CsvRows csv(text);
  JsonRows lines(names, text);
  Rows& rows = json ? static_cast<Rows&>(lines) : csv;
  RejectLines rejects;
  Block block;
  while (reader.next(block)) decoder.decode(block, rows, text, rejects);
  FUZZ_REQUIRE(rejects.count == 0);
  return text;
}

// A text is written as it stands, but for blanks at its end; eight bytes of RB hold any double.
void check_kept(const Kind& kind, const Given& given, const Given& back) {
  if (kind.format.TypeEx() == VELT_Format::A || kind.format.TypeEx() == VELT_Format::AHEX) {
    const std::string text = given.text.substr(0, given.text.find_last_not_of(' ') + 1);
    FUZZ_REQUIRE(given.kind == Given::Kind::missing ? back.text.empty() : back.text == text);
  } else if (given.kind == Given::Kind::missing) {
    FUZZ_REQUIRE(back.kind == Given::Kind::missing);
  } else if (given.kind == Given::Kind::number && kind.format.TypeEx() == VELT_Format::RB &&
             kind.format.Width() == 8 && !is_missing(given.number)) {
    FUZZ_REQUIRE(back.kind == Given::Kind::number);
    FUZZ_REQUIRE(fuzz::same_bits(back.number, given.number));
  }
}

struct Encoded {
  std::string records;
  std::vector<std::vector<Given>> rows;  // those that made a record
  std::size_t refused = 0;
};

// Encodes a file of rows, all of which lie in it one behind the other.
Encoded encode_all(const Layout& layout, std::string_view bytes, bool json,
                   std::size_t block_size = 1 << 16) {
  const fuzz::MemoryFile memory(bytes);
  InputFile file(memory.path());
  RowReader reader(file, json ? RowForm::jsonl : RowForm::csv, block_size);
  FUZZ_REQUIRE(bytes.starts_with(reader.head()));
  const std::unique_ptr<RowParser> parser = parser_of(reader, layout, json);
  Encoder encoder(layout);
  Encoded encoded;
  std::size_t taken = reader.head().size();
  std::size_t at = taken;
  std::int64_t number = 0;
  for (RowBlock block; reader.next(block); taken += block.size()) {
    FUZZ_REQUIRE(block.first_number() == number + 1);
    for (std::size_t i = 0; i < block.count(); ++i) {
      const Row row = block.row(i);
      FUZZ_REQUIRE(row.number == ++number);
      const auto offset = static_cast<std::size_t>(row.offset);
      FUZZ_REQUIRE(json ? offset >= at : offset == at);
      FUZZ_REQUIRE(bytes.substr(offset, row.text.size()) == row.text);
      at = offset + row.text.size();
      std::vector<Given> values;
      if (parser->parse(row.text, values).empty() && encode(encoder, values)) {
        encoded.records += encoder.record();
        encoded.rows.push_back(values);
      } else {
        ++encoded.refused;
      }
    }
  }
  FUZZ_REQUIRE(taken == bytes.size());
  return encoded;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const Layout layout = layout_of(input);
  const bool json = input.below(2) == 1;
  const std::string_view bytes = input.rest(4000);
  apply(layout.settings);
  Encoded first;
  try {
    first = encode_all(layout, bytes, json);
  } catch (const UsageError& error) {
    FUZZ_REQUIRE(!json && error.what()[0] != '\0');  // the line of names
    return 0;
  }
  FUZZ_REQUIRE(encode_all(layout, bytes, json, 1).records == first.records);  // a row a block
  if (!is_readable(layout)) return 0;
  const std::string shown = decode(layout, first.records, json);
  const Encoded again = encode_all(layout, shown, json);
  FUZZ_REQUIRE(again.refused == 0 && again.records == first.records);
  for (std::size_t i = 0; i < first.rows.size(); ++i) {
    for (std::size_t j = 0; j < layout.fields.size(); ++j) {
      const Kind kind = {layout.fields[j].format, layout.fields[j].show};
      check_kept(kind, first.rows[i][j], again.rows[i][j]);
    }
  }
  return 0;
}
