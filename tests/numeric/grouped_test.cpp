// COMMA, DOLLAR, DOT, PCT and the custom currencies against their rules in words, over exact digits
// and patterns whose texts are known because they were chosen first.
#include <iocv/currencies.h>

#include <optional>

#include "numeric/custom_currency.h"
#include "numeric/obocom.h"
#include "numeric/obopct.h"
#include "support/exact_f.h"
#include "support/writers.h"

namespace {

using iocv::Field;
using iocv::FormatCode;
using iocv::Settings;
using test::blanks;
using test::described;
using test::shown;

constexpr int kWidest = 40;

std::string stars(int width) { return std::string(static_cast<std::size_t>(width), '*'); }

// In the marks of a format whose decimal character is a comma.
std::string with_comma(std::string text) {
  for (char& c : text) c = c == '.' ? ',' : c == ',' ? '.' : c;
  return text;
}

// The digits of a magnitude with some decimals in so many columns: in groups where all decimals
// fit, else as F; empty where neither fits, nothing where the tolerance of rounding has a say.
class GroupedDigits {
 public:
  GroupedDigits(double value, int decimals) {
    const test::Decimal exact = test::exact_decimal(value);
    const test::Rounded asked = test::rounded(exact, decimals);
    is_ordinary_ = test::is_ordinary(asked, value);
    is_zero_ = asked.is_zero();
    for (int room = 1; room <= kWidest; ++room) {
      by_room_[static_cast<std::size_t>(room)] = make(exact, value, room, decimals);
    }
  }

  [[nodiscard]] bool is_ordinary() const { return is_ordinary_; }
  [[nodiscard]] bool is_zero() const { return is_zero_; }

  // More than kWidest columns add blanks alone: ordinary values fit in fewer.
  [[nodiscard]] const std::optional<std::string>& in(int room) const {
    return by_room_[static_cast<std::size_t>(std::clamp(room, 0, kWidest))];
  }

 private:
  static std::optional<std::string> make(const test::Decimal& exact, double value, int room,
                                         int decimals) {
    const test::Rounded digits = test::rounded(exact, std::min(decimals, room - 1));
    if (!test::is_ordinary(digits, value)) return std::nullopt;
    std::string text = test::grouped(digits.whole, ',');
    if (!digits.fraction.empty()) text += "." + digits.fraction;
    if (text.empty()) text = "0";
    if (static_cast<int>(text.size()) <= room) return text;
    const std::optional<std::string> fixed = test::exact_f(std::fabs(value), room, decimals);
    if (!fixed) return std::nullopt;
    return (*fixed)[0] == '*' ? "" : fixed->substr(fixed->find_first_not_of(' '));
  }

  bool is_ordinary_;
  bool is_zero_;
  std::array<std::optional<std::string>, kWidest + 1> by_room_ = {""};
};

// A format with its four texts.
struct Decorated {
  FormatCode code;
  std::string pattern;  // of a custom currency
  std::string negative_prefix;
  std::string prefix;
  std::string suffix;
  std::string negative_suffix;
  bool decimal_comma = false;
};

int size(const std::string& text) { return static_cast<int>(text.size()); }

// The field in words. A value below zero keeps columns for its prefix, every value those for the
// negative suffix; prefix and suffix are given up together when the digits do not fit.
std::optional<std::string> exact_decorated(const Decorated& format, double value, int width,
                                           const GroupedDigits& digits) {
  if (!digits.is_ordinary()) return std::nullopt;
  const int reserved = value < 0 ? size(format.negative_prefix) : 0;
  const bool negative = value < 0 && !digits.is_zero();
  for (const bool all : {true, false}) {
    const std::string prefix = all ? format.prefix : "";
    const std::string suffix = all ? format.suffix : "";
    const int room = width - reserved - size(prefix) - size(suffix) - size(format.negative_suffix);
    const std::optional<std::string>& found = digits.in(room);
    if (!found) return std::nullopt;
    if (found->empty()) continue;
    return blanks(room - size(*found)) + (negative ? format.negative_prefix : blanks(reserved)) +
           prefix + (format.decimal_comma ? with_comma(*found) : *found) + suffix +
           (negative ? format.negative_suffix : blanks(size(format.negative_suffix)));
  }
  return stars(width);
}

std::optional<std::string> exact_percent(double value, int width, int decimals) {
  if (width > 1) {
    const std::optional<std::string> number = test::exact_f(value, width - 1, decimals);
    if (!number) return std::nullopt;
    if ((*number)[0] != '*') return *number + "%";
  }
  return test::exact_f(value, width, decimals);
}

// ---- patterns

Decorated currency(std::string pattern, std::array<std::string, 4> texts, bool decimal_comma) {
  return {FormatCode::cca, std::move(pattern), texts[0],     texts[1],
          texts[2],        texts[3],           decimal_comma};
}

std::string run(std::size_t length, char c) { return std::string(length, c); }

// Built-in formats, and currencies whose texts are evident.
std::vector<Decorated> plain_formats() {
  return {
      {FormatCode::comma, "", "-", "", "", "", false},
      {FormatCode::dollar, "", "-", "$", "", "", false},
      {FormatCode::dot, "", "-", "", "", "", true},
      currency("", {"", "", "", ""}, false),
      currency("abc", {"abc", "", "", ""}, false),
      currency(",,,", {"", "", "", ""}, false),
      currency("...", {"", "", "", ""}, true),
      currency("-,$,,CR", {"-", "$", "", "CR"}, false),
      currency("-.'.EUR..", {"-", ".EUR", "", ""}, true),
      currency("(,<,>,)", {"(", "<", ">", ")"}, false),
      // Quotes of either kind, around separators, digits' marks and quotes; one at the end.
      currency(R"("-,'$"','.",,"")", {"-", "$'", ".,", "\""}, false),
      currency(R"('-'.,x,'.y.".')", {"-.", "x", ".y..", ""}, false),
      // More than three separators.
      currency("a,b,c,d,e,f", {"a", "b", "c", "d"}, false),
      currency("a.b.c.d....'.e", {"a", "b", "c", "d"}, true),
      // Of 255, 256, 257 bytes and more.
      currency("-," + run(251, 'p') + ",,", {"-", run(251, 'p'), "", ""}, false),
      currency("-," + run(252, 'p') + ",,", {"-", run(252, 'p'), "", ""}, false),
      currency("-.." + run(252, 's') + ".e", {"-", "", run(252, 's'), "e"}, true),
      currency(run(100, 'm')
                   .append(1, ',')
                   .append(100, 'p')
                   .append(1, ',')
                   .append(100, 's')
                   .append(1, ',')
                   .append(100, 'e'),
               {run(100, 'm'), run(100, 'p'), run(100, 's'), run(100, 'e')}, false),
  };
}

// A currency of random texts, most of them short; its pattern quotes what must be and more.
Decorated random_currency(std::mt19937_64& random) {
  constexpr std::string_view kAlphabet = "x$ -(.,'\"0*\xE2";
  const char separator = random() % 2 == 0 ? ',' : '.';
  std::array<std::string, 4> texts;
  std::string pattern;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i != 0) pattern += separator;
    for (std::uint64_t length = random() % 4 * (random() % 3); length > 0; --length) {
      const char c = kAlphabet[random() % kAlphabet.size()];
      texts[i] += c;
      // Either mark would be taken for the separator before the first one stands.
      const bool must =
          c == '\'' || c == '"' || c == separator || (i == 0 && (c == '.' || c == ','));
      if (must || random() % 4 == 0) pattern += random() % 2 == 0 ? '\'' : '"';
      pattern += c;
    }
  }
  constexpr std::string_view kEnds[] = {"", "'", "\""};
  if (random() % 3 == 0) {
    pattern += separator;
    pattern += "dropped";
  } else {
    pattern += kEnds[random() % std::size(kEnds)];
  }
  return currency(pattern, texts, separator == '.');
}

// ---- the comparison

// A format with the settings that show it; the currency must stay where it is.
class Writer {
 public:
  explicit Writer(Decorated format) : format_(std::move(format)) {
    currencies_[0].Set(format_.pattern);
  }
  [[nodiscard]] const Decorated& format() const { return format_; }

  // The settings' own marks and zero have no say here, so any will do.
  [[nodiscard]] std::string written(double value, int width, int decimals, bool other) const {
    const Settings settings = {
        .currencies = &currencies_, .decimal = other ? ',' : '.', .leading_zero = other};
    return test::written(
        [&](Field out, double number, std::int64_t places) {
          EXPECT_EQ(iocv::write_currency(out, number, places, format_.code, settings),
                    iocv::Status::ok);
        },
        value, width, decimals);
  }

 private:
  Decorated format_;
  iocv::Currencies currencies_;
};

std::string percent_written(double value, int width, int decimals) {
  return test::written(
      [](Field out, double number, std::int64_t places) {
        EXPECT_EQ(iocv::write_percent(out, number, places, Settings()), iocv::Status::ok);
      },
      value, width, decimals);
}

class Comparison {
 public:
  // Compares every format in all widths to 40 and in those about its texts; false on a difference.
  bool compare(double value, int decimals, bool other) {
    const GroupedDigits digits(value, decimals);
    for (const Writer& writer : writers_) {
      if (!compare_all(writer, value, decimals, other, digits)) return false;
    }
    const Writer random(random_currency(source_));
    if (!compare_all(random, value, decimals, other, digits)) return false;
    for (int width = 1; width <= kWidest; ++width) {
      if (!same("PCT", exact_percent(value, width, decimals),
                percent_written(value, width, decimals), value, width, decimals)) {
        return false;
      }
    }
    return true;
  }

  void run(int count) {
    SCOPED_TRACE(test::seed_text());
    for (int i = 0; i < count; ++i) {
      const double value = test::ordinary_double(source_);
      const int decimals = static_cast<int>(source_() % 8);
      if (!compare(value, decimals, i % 2 == 1)) return;
    }
    const auto formats = static_cast<std::int64_t>(writers_.size()) + 2;
    EXPECT_GT(compared_, 20 * formats * count);
  }

 private:
  bool compare_all(const Writer& writer, double value, int decimals, bool other,
                   const GroupedDigits& digits) {
    const Decorated& format = writer.format();
    const int texts = size(format.negative_prefix) + size(format.prefix) + size(format.suffix) +
                      size(format.negative_suffix);
    for (int width = 1; width <= kWidest + texts; ++width) {
      if (width > kWidest && width < texts) continue;
      if (!same(format.pattern, exact_decorated(format, value, width, digits),
                writer.written(value, width, decimals, other), value, width, decimals)) {
        return false;
      }
    }
    return true;
  }

  bool same(const std::string& pattern, const std::optional<std::string>& expected,
            const std::string& text, double value, int width, int decimals) {
    if (!expected) return true;
    ++compared_;
    if (text == *expected) return true;
    ADD_FAILURE() << "pattern " << pattern << ", " << described(value) << ", width " << width
                  << ", decimals " << decimals << "\n  is      " << shown(text) << "\n  must be "
                  << shown(*expected);
    return false;
  }

  std::mt19937_64 source_ = test::random_source();
  std::vector<Writer> writers_ = make_writers();
  std::int64_t compared_ = 0;

  static std::vector<Writer> make_writers() {
    std::vector<Writer> writers;
    for (const Decorated& format : plain_formats()) writers.emplace_back(format);
    return writers;
  }
};

TEST(Grouped, ShowsTheCorrectlyRoundedDigitsInEveryWidthUnderEveryPattern) {
  Comparison().run(2000);
}
TEST(LongGrouped, ShowsTheCorrectlyRoundedDigitsInEveryWidthUnderEveryPattern) {
  Comparison().run(1000000);
}

}  // namespace
