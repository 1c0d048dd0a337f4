// Number input: what the attempts at ordinary fields answer is what the scanner answers.
#include "numeric/obif.h"

#include "frame/attempts.h"
#include "numeric/obif_loose_fast.h"
#include "support/read_both_ways.h"

namespace {

using iocv::FormatCode;

constexpr FormatCode kTypes[] = {FormatCode::f,   FormatCode::e,      FormatCode::comma,
                                 FormatCode::dot, FormatCode::dollar, FormatCode::pct,
                                 FormatCode::cca};
constexpr std::size_t kWidest = 40;

class Fields : test::BothWays {
 public:
  Fields() : BothWays(kWidest) {}

  void expect_same(std::string_view text, std::int64_t decimals, FormatCode type,
                   const iocv::Settings& settings) const {
    BothWays::expect_same(
        text,
        [&](std::string_view field) { return iocv::read_number(field, decimals, type, settings); },
        [&](std::string_view field) {
          return iocv::read_number_plain(field, decimals, type, settings);
        },
        [&] {
          return "decimals " + std::to_string(decimals) + " type " +
                 std::to_string(static_cast<int>(type)) + " decimal " + settings.decimal;
        });
  }
};

iocv::Settings settings_with(char decimal) {
  iocv::Settings settings;
  settings.system_missing = -99;
  settings.blank_value = -77;
  settings.decimal = decimal;
  return settings;
}

template <FormatCode kType>
struct Constant {
  constexpr operator FormatCode() const { return kType; }
};

// call with a type that is a constant.
template <class Call>
bool with_type(FormatCode type, Call call) {
  switch (type) {
    case FormatCode::e: return call(Constant<FormatCode::e>());
    case FormatCode::comma: return call(Constant<FormatCode::comma>());
    case FormatCode::dollar: return call(Constant<FormatCode::dollar>());
    case FormatCode::pct: return call(Constant<FormatCode::pct>());
    case FormatCode::dot: return call(Constant<FormatCode::dot>());
    default: return call(Constant<FormatCode::f>());
  }
}

TEST(FastNumberInput, AnswersWhereItSaysItDoes) {
  struct Case {
    const char* text;
    std::int64_t decimals;
    FormatCode type;
    bool answers;
    double value;
  };
  using enum FormatCode;
  const Case cases[] = {
      {"  -12.50", 2, f, true, -12.5},
      {"12345678", 2, f, true, 123456.78},
      {"       0", 2, f, true, 0},
      {"    -.00", 2, f, true, 0},
      {"123456789012345", 15, f, true, .123456789012345},
      {"1234567890.12345", 0, f, true, 1234567890.12345},
      {"-123456789012345", 0, f, true, -123456789012345},
      {"        ", 2, f, true, -77},
      {"7", 0, pct, true, 7},
      {"1234567890123456", 0, f, true, 1234567890123456},
      {"9999999999999999", 0, f, true, 1e16},
      {"12345678901234567", 0, f, false, 0},
      {"", 0, f, false, 0},
      {"12", 16, f, false, 0},
      {"12", -1, f, false, 0},
      {"   12.50 ", 2, f, false, 0},
      {" - 12.50", 2, f, false, 0},
      {"   +12.5", 2, f, false, 0},
      {"  12.5.0", 2, f, false, 0},
      {"       -", 2, f, false, 0},
      {"       .", 2, f, false, 0},
      {"   1,234", 2, f, false, 0},
      {"  -1.235E+003", 3, e, true, -1235},
      {" 1.e-002", 3, e, true, .01},
      {"   12E+000", 3, e, true, 12},
      {"  -1.235E+033", 3, e, true, -1.235e33},
      {"  -1.235E-029", 3, e, true, -1.235e-29},
      {"  -1.235E-030", 3, e, false, 0},
      {"   1.235E+103", 3, e, false, 0},
      {"   1.235E 003", 3, e, false, 0},
      {"   1.235E*003", 3, e, false, 0},
      {"   1.235E+0:3", 3, e, false, 0},
      {"      -E+003", 3, e, false, 0},
      {"  -1,234.50", 2, comma, true, -1234.5},
      {"1,234,567.89", 2, comma, true, 1234567.89},
      {"1,234,567,890.12", 2, dollar, true, 1234567890.12},
      {"12,345", 0, comma, true, 12345},
      {" 1234.5", 2, comma, true, 1234.5},
      {"   1.234,5", 2, dot, true, 1234.5},
      {"   $12.50", 2, dollar, true, 12.5},
      {"-$1,234.50", 2, dollar, true, -1234.5},
      {"$1,234,567.89", 2, dollar, true, 1234567.89},
      {"$.5", 2, dollar, true, .5},
      {"   12.50", 2, dollar, true, 12.5},
      {"        ", 2, dollar, true, -77},
      {"  $-12.50", 2, dollar, false, 0},
      {"  $$12.50", 2, dollar, false, 0},
      {"  12.50$", 2, dollar, false, 0},
      {"   $12.50", 2, comma, false, 0},
      {"    $", 0, dollar, false, 0},
      {"  -12.50%", 2, pct, true, -12.5},
      {"1%", 2, pct, true, .01},
      {"  12.50", 2, pct, true, 12.5},
      {"1234567890123.45%", 2, pct, true, 1234567890123.45},
      {"       %", 2, pct, false, 0},
      {"%", 2, pct, false, 0},
      {"  12.5 %", 2, pct, false, 0},
      {"  12.5%%", 2, pct, false, 0},
      {"  12.5%", 2, f, false, 0},
      {"12345.6", 2, comma, false, 0},
      {"1,2345.6", 2, comma, false, 0},
      {"12,34.56", 2, comma, false, 0},
      {",123.45", 2, comma, false, 0},
      {"-,123.45", 2, comma, false, 0},
      {"1.234,56", 2, comma, false, 0},
  };
  const iocv::Settings settings = settings_with('.');
  for (const Case& c : cases) {
    iocv::Read<double> read;
    const bool answers = with_type(c.type, [&](auto type) {
      return iocv::read_by<iocv::OrdinaryReader<type>>(c.text, c.decimals, settings, read);
    });
    EXPECT_EQ(answers, c.answers) << c.text;
    EXPECT_EQ(c.answers ? read.value : 0, c.value) << c.text;
  }
}

TEST(FastNumberInput, OneLookTellsWhatOtherFieldsAre) {
  using enum FormatCode;
  using enum iocv::Status;
  constexpr auto kLeft = iocv::Status{-1};  // to the scanner
  struct Case {
    const char* text;
    FormatCode type;
    iocv::Status status;
    double value = -99;
  };
  const Case cases[] = {
      {"       .", f, no_digits},
      {"   .    ", f, no_digits},
      {".", pct, no_digits},
      {"       .", comma, no_digits},
      {"       ,", comma, kLeft},
      {"       ,", dot, no_digits},
      {"        ", e, ok, -77},
      {"     3x3", f, number_character},
      {"  x     ", f, number_character},
      {"    3\xFF", e, number_character},
      {"12/31/99", f, number_character},
      {"31.12.99", f, number_character},
      {"31.12.99", comma, number_character},
      {"31.12.99", dot, kLeft},
      {"   1,234", f, number_character},
      {"     $12", f, number_character},
      {"     12%", f, number_character},
      {"    12%x", pct, kLeft},
      {"    12x%", pct, number_character},
      {"   - 12%", pct, kLeft},
      {"   1%12%", pct, kLeft},
      {"    1 2x", f, kLeft},
      {"    1x 2", f, number_character},
      {"     . .", f, kLeft},
      {"     ..5", f, number_character},
      {"     +30", f, ok, .3},
      {"    +3.5", dollar, ok, 3.5},
      {"    + 30", f, kLeft},
      {"     +-3", f, kLeft},
      {"     ++3", f, kLeft},
      {"       +", f, kLeft},
      {"      -3", f, kLeft},
      {"   +1,234", comma, kLeft},
      {"    3E+3", f, ok, 3000},
      {"   -3e-3", pct, ok, -.003},
      {"  1.25d2", comma, ok, 125},
      {"  1,25D2", dot, ok, 125},
      {"     .E1", f, kLeft},
      {"      E1", f, kLeft},
      {"      1E", f, kLeft},
      {"     1E+", f, kLeft},
      {"   1E E1", f, kLeft},
      {"   1E1.5", f, kLeft},
      {" 1E+0001", f, kLeft},
      {"    1E22", f, ok, 1e22},
      {"    1E23", f, kLeft},
      {"   1E-16", f, ok, 1e-16},
      {"  1.E-20", f, kLeft},
      {"    12.5", e, ok, 12.5},
      {"    1250", e, ok, 12.5},
      {"    1250", dot, ok, 12.5},
      {"12345.67", comma, ok, 12345.67},
      {"1234567890123456", dollar, ok, 12345678901234.56},
      {"1234567890123E12", comma, ok, 1234567890123e12},
      {"-1234567890123E2", f, ok, -123456789012300},
      {"                +", f, kLeft},
      {"", f, kLeft},
  };
  const iocv::Settings settings = settings_with('.');
  for (const Case& c : cases) {
    iocv::Read<double> read;
    const bool answers = with_type(c.type, [&](auto type) {
      return iocv::read_by<iocv::LooseReader<type>>(c.text, 2, settings, read);
    });
    EXPECT_EQ(answers, c.status != kLeft) << c.text;
    if (!answers) continue;
    EXPECT_EQ(read.status, c.status) << c.text;
    EXPECT_EQ(read.value, c.value) << c.text;
  }
}

TEST(FastNumberInput, EveryByteAtEveryPlaceReadsAsByTheScanner) {
  constexpr std::string_view kTexts[] = {"",
                                         "7",
                                         "-5",
                                         "1.5",
                                         "  12",
                                         "-1.25",
                                         "    +30",
                                         "  12E+3",
                                         " 1234.5d2",
                                         " 12345",
                                         "  -1.50",
                                         "  123.45",
                                         "12345678",
                                         "  -12345 ",
                                         "12,345.67",
                                         "-1,234,567",
                                         "1.235E+003",
                                         "-1.2350E-05",
                                         "  1.235E+003",
                                         "1,234,567.89",
                                         "   -123.4567",
                                         "12.345.678,90",
                                         "123,456,789.012",
                                         "1,234,567,890.12",
                                         "-12345678.123456",
                                         "1234567890123456",
                                         "    123,456.78  ",
                                         "          1234.56",
                                         "                1.23",
                                         "   -$12.50",
                                         "$1,234.50",
                                         "   -12.50%",
                                         "1234567890123.4%",
                                         "    -$12,345.60         ",
                                         "                       12.5%  "};
  const Fields fields;
  for (const std::string_view original : kTexts) {
    for (std::size_t place = 0; place < std::max<std::size_t>(original.size(), 1); ++place) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string text(original);
        if (!text.empty()) text[place] = static_cast<char>(byte);
        for (const FormatCode type : kTypes) {
          for (const char decimal : {'.', ','}) {
            fields.expect_same(text, byte % 2 == 0 ? 0 : 2, type, settings_with(decimal));
            if (HasFatalFailure()) return;
          }
        }
      }
    }
  }
}

class RandomField {
 public:
  struct Case {
    std::string text;
    std::int64_t decimals;
    FormatCode type;
    char decimal;
  };

  // Three in eight stand at the edges of what the attempts answer.
  Case next() {
    Case c = {"", below(8) == 0 ? number_between(-3, 18) : number_between(0, 6),
              kTypes[below(std::size(kTypes))], below(2) == 0 ? '.' : ','};
    const bool follows =
        c.type == FormatCode::f || c.type == FormatCode::e || c.type == FormatCode::pct;
    const bool comma = follows ? c.decimal == ',' : c.type == FormatCode::dot;
    point_ = comma ? ',' : '.';
    group_ = comma ? '.' : ',';
    std::string text;
    switch (below(8)) {
      case 0: text = with_point(long_digits()); break;
      case 1: text = with_point(digits(number_between(1, 15))) + far_exponent(); break;
      case 2: text = damaged(formatted(c.type)); break;
      case 3: text = any_bytes(); break;
      case 4: text = with_point(digits(number_between(0, 14))) + short_exponent(); break;
      default: text = formatted(c.type); break;
    }
    c.text = in_field(std::move(text));
    return c;
  }

 private:
  std::uint64_t below(std::uint64_t bound) { return random_() % bound; }
  std::int64_t number_between(std::int64_t low, std::int64_t high) {
    return low + static_cast<std::int64_t>(below(static_cast<std::uint64_t>(high - low) + 1));
  }

  std::string digits(std::int64_t count) {
    std::string text(static_cast<std::size_t>(count), '0');
    for (char& byte : text) byte = static_cast<char>('0' + below(10));
    return text;
  }

  // Next to the powers of ten and of two that end what a double counts.
  std::string long_digits() {
    constexpr std::int64_t kEdges[] = {99999999,         999999999,        99999999999999,
                                       999999999999999,  9999999999999999, 9007199254740992,
                                       4503599627370496, 1000000000000000, 2251799813685248};
    return std::to_string(kEdges[below(std::size(kEdges))] + number_between(-4096, 4096));
  }

  std::string with_point(std::string text) {
    if (below(4) != 0) text.insert(below(text.size() + 1), 1, point_);
    return sign() + text;
  }

  std::string sign() {
    const auto choice = below(16);
    return choice < 8 ? "" : choice < 14 ? "-" : choice == 14 ? "+" : "- ";
  }

  std::string far_exponent() {
    return std::string(1, "EeD"[below(3)]) + "+-"[below(2)] +
           (below(2) == 0 ? digits(3) : "0" + digits(2));
  }

  std::string short_exponent() {
    constexpr std::string_view kSigns[] = {"", "+", "-", "- "};
    return std::string(1, "EeDd"[below(4)]) + std::string(kSigns[below(4)]) +
           (below(4) == 0 ? digits(number_between(0, 4)) : std::to_string(below(40)));
  }

  // As output of the type has it, more or less.
  std::string formatted(FormatCode type) {
    std::string whole = digits(number_between(0, 9));
    whole.erase(0, whole.find_first_not_of('0'));
    const std::int64_t decimals = number_between(0, whole.empty() ? 7 : 5);
    const bool grouped =
        type == FormatCode::comma || type == FormatCode::dollar || type == FormatCode::dot;
    if (grouped && below(8) != 0) {
      for (std::size_t i = whole.size(); i > 3; i -= 3) whole.insert(i - 3, 1, group_);
    }
    std::string text = sign();
    if (type == FormatCode::dollar && below(8) < 6) text += '$';
    text += whole;
    if (decimals != 0 || whole.empty()) text += point_ + digits(decimals);
    if (type == FormatCode::e && below(4) != 0) {
      text += std::string(1, "Ee"[below(2)]) + "+-"[below(2)] + "0" + digits(2);
    }
    if (type == FormatCode::pct && below(8) < 6) text += '%';
    return text;
  }

  std::string damaged(std::string text) {
    constexpr std::string_view kBytes("0123456789+-.,$%EeDd x\0\x10\x7F\x80\xB0\xFF", 28);
    if (!text.empty()) text[below(text.size())] = kBytes[below(kBytes.size())];
    return text;
  }

  std::string any_bytes() {
    constexpr std::string_view kAlphabet = "0123456789-.,E+   ";
    std::string text(below(20) + 1, ' ');
    for (char& byte : text) byte = kAlphabet[below(kAlphabet.size())];
    return text;
  }

  // Mostly at the right of a wider field.
  std::string in_field(std::string text) {
    const std::size_t widest = below(4) == 0 ? kWidest : 20;
    if (text.size() > widest) text.resize(widest);
    const std::size_t room = below(widest - text.size() + 1);
    const std::size_t behind = below(8) == 0 ? below(room + 1) : 0;
    return std::string(room - behind, ' ') + text + std::string(behind, ' ');
  }

  std::mt19937_64 random_ = test::random_source();
  char point_ = '.';
  char group_ = ',';
};

void compare_random_fields(int count) {
  SCOPED_TRACE(test::seed_text());
  const Fields fields;
  RandomField random;
  for (int i = 0; i < count; ++i) {
    const RandomField::Case c = random.next();
    fields.expect_same(c.text, c.decimals, c.type, settings_with(c.decimal));
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(FastNumberInput, RandomFieldsReadAsByTheScanner) { compare_random_fields(1'000'000); }

TEST(LongFastNumberInput, RandomFieldsReadAsByTheScanner) { compare_random_fields(25'000'000); }

}  // namespace
