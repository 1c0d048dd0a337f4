#include "rows.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace vectors {
namespace {

// The names of the codes 1..39; the others have none and are written as numbers.
constexpr std::array<std::string_view, 39> kNames = {
    "A",    "AHEX",     "COMMA", "DOLLAR", "F",     "IB",    "PIBHEX", "P",     "PIB",  "PK",
    "RB",   "RBHEX",    "",      "",       "Z",     "N",     "E",      "",      "",     "DATE",
    "TIME", "DATETIME", "ADATE", "JDATE",  "DTIME", "WKDAY", "MONTH",  "MOYR",  "QYR",  "WKYR",
    "PCT",  "DOT",      "CCA",   "CCB",    "CCC",   "CCD",   "CCE",    "EDATE", "SDATE"};

constexpr std::uint64_t kMissing = 0xFFEFFFFFFFFFFFFF;

template <typename Integer>
Integer integer(std::string_view digits, int base = 10) {
  Integer n = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, n, base);
  if (digits.empty() || result.ec != std::errc() || result.ptr != end) {
    throw std::runtime_error("no number: " + std::string(digits));
  }
  return n;
}

char byte(std::string_view hex) {
  if (hex.size() != 2) throw std::runtime_error("no byte: " + std::string(hex));
  return static_cast<char>(integer<unsigned char>(hex, 16));
}

std::string unescaped(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      bytes += text[i];
    } else {
      if (text.substr(i, 2) != "\\x") throw std::runtime_error("only \\xNN is an escape");
      bytes += byte(text.substr(i + 2, 2));
      i += 3;
    }
  }
  return bytes;
}

// What a cursor walks over: words between blanks, fields between bars or angle brackets.
class Words {
 public:
  explicit Words(std::string_view line) : rest_(line) { skip_blanks(); }

  [[nodiscard]] bool more() const { return !rest_.empty() && rest_.front() != '#'; }
  [[nodiscard]] bool at_field() const {
    return more() && (rest_.front() == '|' || rest_.front() == '<');
  }
  std::string_view word() { return take(rest_.substr(0, rest_.find(' '))); }

  // "|abc|" or "<61 62 63>", or several with a plus between them.
  std::string field() {
    std::string bytes = piece();
    while (!rest_.empty() && rest_.front() == '+') {
      take(rest_.substr(0, 1));
      bytes += piece();
    }
    return bytes;
  }

 private:
  std::string piece() {
    if (!at_field()) throw std::runtime_error("no field where one belongs");
    const bool hexadecimal = rest_.front() == '<';
    const std::size_t end = rest_.find(hexadecimal ? '>' : '|', 1);
    if (end == std::string_view::npos) throw std::runtime_error("a field without end");
    const std::string_view inside = rest_.substr(1, end - 1);
    take(rest_.substr(0, end + 1));
    return hexadecimal ? bytes(inside) : unescaped(inside);
  }

  // "20*3 41": three blanks and an A.
  static std::string bytes(std::string_view inside) {
    std::string all;
    Words words(inside);
    while (words.more()) {
      const std::string_view item = words.word();
      const std::size_t star = item.find('*');
      const std::size_t count =
          star == std::string_view::npos ? 1 : integer<std::size_t>(item.substr(star + 1));
      all.append(count, byte(item.substr(0, star)));
    }
    return all;
  }

  std::string_view take(std::string_view part) {
    rest_.remove_prefix(part.size());
    skip_blanks();
    return part;
  }
  void skip_blanks() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  }

  std::string_view rest_;
};

// "F8.2" or, for a code without a name, "40:12.2"; no decimals are 0.
void parse_format(std::string_view word, Row& row) {
  std::size_t at = word.find(':');
  if (at != std::string_view::npos) {
    row.type = integer<std::int32_t>(word.substr(0, at));
    ++at;
  } else {
    at = word.find_first_of("0123456789");
    const std::string_view name = word.substr(0, at);
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      if (!name.empty() && kNames[i] == name) row.type = static_cast<std::int32_t>(i + 1);
    }
    if (row.type == 0) throw std::runtime_error("no format " + std::string(word));
  }
  const std::size_t point = word.find('.', at);
  row.width = integer<std::int64_t>(word.substr(at, point - at));
  if (point != std::string_view::npos) row.decimals = integer<std::int64_t>(word.substr(point + 1));
}

std::string parse_value(Words& words) {
  if (words.at_field()) return words.field();
  const double number = number_of(words.word());
  std::string bytes(sizeof number, '\0');
  std::memcpy(bytes.data(), &number, sizeof number);
  return bytes;
}

void parse_row(Words& words, Row& row) {
  parse_format(words.word(), row);
  const auto untouched = [&words] {
    Words ahead = words;
    const bool is = ahead.word() == "untouched";
    if (is) words = ahead;
    return is;
  };
  if (row.reads) {
    row.field = words.field();
    if (!untouched()) row.value = parse_value(words);
  } else {
    row.value = parse_value(words);
    row.field_untouched = untouched();
    if (!row.field_untouched) row.field = words.field();
  }
  if (words.more()) row.status = integer<std::int64_t>(words.word());
  if (words.more()) throw std::runtime_error("text after the row");
  if (!row.field_untouched && row.field.size() != static_cast<std::size_t>(row.width)) {
    throw std::runtime_error("the field has " + std::to_string(row.field.size()) + " columns");
  }
}

}  // namespace

Line parse(std::string_view text) {
  Line line;
  Words words(text);
  if (!words.more()) return line;
  const std::string_view first = words.word();
  if (first == "with") {
    line.kind = Line::Kind::settings;
    while (words.more()) {
      const std::string_view word = words.word();
      const std::size_t equals = word.find('=');
      if (equals == std::string_view::npos) {
        if (word != "defaults") throw std::runtime_error("no setting: " + std::string(word));
        continue;
      }
      line.settings.push_back(
          {std::string(word.substr(0, equals)), unescaped(word.substr(equals + 1))});
    }
    return line;
  }
  if (first != "read" && first != "write") {
    throw std::runtime_error("neither read nor write: " + std::string(first));
  }
  line.kind = Line::Kind::row;
  line.row.reads = first == "read";
  parse_row(words, line.row);
  return line;
}

double number_of(std::string_view word) {
  if (word == "missing") return std::bit_cast<double>(kMissing);
  const std::size_t at = word.find('@');
  if (at == std::string_view::npos || word.size() - at != 17) {
    throw std::runtime_error("no decimal@bits: " + std::string(word));
  }
  return std::bit_cast<double>(integer<std::uint64_t>(word.substr(at + 1), 16));
}

std::string described(const std::string& bytes) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, bytes.data(), sizeof bits);
  if (bits == kMissing) return "missing";
  std::array<char, 64> text{};
  const int size =
      std::snprintf(text.data(), text.size(), "%.17g@%016llX", std::bit_cast<double>(bits),
                    static_cast<unsigned long long>(bits));
  return {text.data(), static_cast<std::size_t>(size)};
}

}  // namespace vectors
