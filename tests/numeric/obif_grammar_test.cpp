// Number input: its rules told as a grammar, by a parser that shares nothing with the library.
#include "numeric/obif.h"
#include "numeric/obif_support.h"
#include "support/powers.h"

namespace test {
namespace {

class Reference {
 public:
  Reference(std::string_view field, std::int64_t decimals, std::int32_t type, char setting)
      : decimals_(decimals), type_(type) {
    comma_ = type == DOT || (setting == ',' && (type == F || type == E || type == PCT));
    while (!field.empty() && field.front() == ' ') field.remove_prefix(1);
    while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
    text_ = field;
  }

  Reading read() {
    if (text_.empty()) return kBlankField;
    if (text_.size() == 1 && decimals_ == 0) {
      if (!next_is_digit()) return fails(text_[0] == point() ? 1111 : 1102);
      return value(text_[0] - '0');
    }
    if (!sign_and_currency()) return fails(1102);
    if (at_end()) return fails(1111);
    if (!integer_and_fraction() || !exponent()) return fails(1102);
    if (const int status = trailer()) return fails(status);
    return digits_.empty() ? fails(1111) : number();
  }

 private:
  [[nodiscard]] bool at_end() const { return at_ == text_.size(); }
  [[nodiscard]] char peek() const { return at_end() ? '\0' : text_[at_]; }
  [[nodiscard]] char point() const { return comma_ ? ',' : '.'; }
  [[nodiscard]] char group() const { return comma_ ? '.' : ','; }
  [[nodiscard]] bool next_is_digit() const { return peek() >= '0' && peek() <= '9'; }
  bool accept(char byte) { return peek() == byte && (++at_, true); }

  bool sign_and_currency() {
    bool signed_already = false;
    for (;; ++at_) {
      if (peek() == '+' || peek() == '-') {
        if (std::exchange(signed_already, true)) return false;
        negative_ = peek() == '-';
      } else if (peek() == '$') {
        if (type_ != DOLLAR) return false;
      } else if (peek() != ' ') {
        return true;
      }
    }
  }

  bool integer_and_fraction() {
    while (next_is_digit() || (!digits_.empty() && peek() == group())) {
      if (!next_is_digit() && type_ != COMMA && type_ != DOLLAR && type_ != DOT) return false;
      if (next_is_digit()) digits_ += peek();
      ++at_;
    }
    scale_ = -decimals_;
    const std::size_t whole = digits_.size();
    if (accept(point())) {
      point_ = true;
      while (next_is_digit()) digits_ += text_[at_++];
      scale_ = static_cast<std::int64_t>(whole) - static_cast<std::int64_t>(digits_.size());
    }
    return point_ || !digits_.empty();
  }

  bool exponent() {
    const bool letter =
        !at_end() && std::string_view("DEde").find(peek()) != std::string_view::npos;
    if (!letter && peek() != '+' && peek() != '-') return true;
    if (!point_) scale_ = 0;
    if (letter) {
      ++at_;
      accept(' ');
    }
    const bool minus = peek() == '-';
    if (minus || peek() == '+') {
      ++at_;
      accept(' ');
    }
    if (!next_is_digit()) return false;
    std::int64_t size = 0;
    for (; next_is_digit(); ++at_) {
      size = size * 10 + (peek() - '0');
      if (size > 999) return false;
    }
    scale_ += minus ? -size : size;
    return true;
  }

  // Blanks, or a percent sign and blanks.
  int trailer() {
    if (at_end()) return 0;
    if (peek() == '%' && type_ == PCT) {
      ++at_;
    } else if (peek() != ' ') {
      return 1102;
    }
    while (accept(' ')) {
    }
    if (at_end()) return 0;
    return peek() == '%' ? 1102 : 1114;
  }

  Reading number() {
    double magnitude = 0;
    bool first = true;
    for (std::size_t i = 0; i < digits_.size(); i += 9) {
      const std::string chunk = digits_.substr(i, 9);
      const auto whole = static_cast<double>(std::stoll(chunk));
      magnitude =
          first ? whole
                : reference_power(static_cast<std::int64_t>(chunk.size())) * magnitude + whole;
      first = false;
    }
    if (magnitude == 0) return value(0);
    const auto size = static_cast<std::int64_t>(digits_.size());
    if (std::abs(scale_) > 9 && (scale_ < -308 || scale_ + size >= 309)) {
      const double v = std::log(magnitude) + 2.302585092994046 * static_cast<double>(scale_);
      if (!(v >= -708.396 && v <= 709.782)) return fails(1133);
      magnitude = std::exp(v);
    } else if (scale_ < 0) {
      magnitude /= reference_power(-scale_);
    } else {
      magnitude *= reference_power(scale_);
    }
    if (std::isinf(magnitude)) return fails(1133);
    return value(negative_ ? -magnitude : magnitude);
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::int64_t decimals_;
  std::int32_t type_;
  bool comma_;
  bool negative_ = false;
  bool point_ = false;
  std::int64_t scale_ = 0;
  std::string digits_;
};

constexpr std::int32_t kTypes[] = {COMMA, DOLLAR, F, E, PCT, DOT, CCA};

void expect_as_reference(const std::string& text, std::int64_t decimals, std::int32_t type,
                         char decimal) {
  iocv::Settings settings;
  settings.blank_value = kBlank;
  settings.decimal = decimal;
  const auto [number, status] =
      iocv::read_number(text, decimals, static_cast<iocv::FormatCode>(type), settings);
  ASSERT_EQ((Reading{number, static_cast<std::int64_t>(status)}),
            Reference(text, decimals, type, decimal).read())
      << "|" << shown(text) << "| decimals " << decimals << " type " << type << " decimal "
      << decimal;
}

TEST(NumberGrammar, TheReferenceKnowsTheRules) {
  EXPECT_EQ(Reference(" -$1,234.5E-1 ", 2, DOLLAR, '.').read(), value(-123.45));
  EXPECT_EQ(Reference("1.5 x", 0, F, '.').read(), fails(1114));
  EXPECT_EQ(Reference("-0", 0, F, '.').read(), value(0));
}

TEST(NumberGrammar, HoldsForAllTextsOfUpToFourBytes) {
  constexpr std::string_view kAlphabet = "0159+-.,$%Edx ";
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].size() < 4) {
      for (const char byte : kAlphabet) texts.push_back(texts[i] + byte);
    }
  }
  ASSERT_EQ(texts.size(), 41371U);  // 1 + 14 + 14^2 + 14^3 + 14^4
  for (const std::string& text : texts) {
    for (const std::int32_t type : kTypes) {
      for (const char decimal : {'.', ','}) {
        for (const std::int64_t decimals : {0, 2}) {
          expect_as_reference(text, decimals, type, decimal);
          if (HasFatalFailure()) return;
        }
      }
    }
  }
}

class RandomText {
 public:
  std::string bytes() {
    constexpr std::string_view kAlphabet = "00112345678999999+--..,,$%EeDd x";
    std::string text(below(40) + 1, ' ');
    for (char& byte : text) byte = kAlphabet[below(kAlphabet.size())];
    return text;
  }

  // Mostly well-formed.
  std::string number() {
    std::string text(below(3), ' ');
    text += pick({"", "", "-", "+", "$", "-$", "- "});
    text += digits(below(26)) + pick({"", "", ".", ",", ",123."}) + digits(below(20));
    if (below(2) == 0) {
      text += pick({"E", "e", "D", "d", "E+", "E-", "-", "+", "E - ", "e "}) + digits(below(4));
    }
    return text + pick({"", "", "", " ", "%", "% ", " %", " x"});
  }

  std::uint64_t below(std::uint64_t bound) { return random_() % bound; }

 private:
  std::string digits(std::uint64_t count) {
    std::string text(count, '0');
    const bool zeros = below(8) == 0;
    for (char& byte : text) byte = static_cast<char>('0' + (zeros ? 0 : below(10)));
    return text;
  }
  std::string pick(std::initializer_list<const char*> choices) {
    return choices.begin()[below(choices.size())];
  }
  std::mt19937_64 random_ = random_source();
};

TEST(NumberGrammar, HoldsForRandomTexts) {
  SCOPED_TRACE(seed_text());
  RandomText random;
  for (int i = 0; i < 400000; ++i) {
    const std::string text = i % 4 == 0 ? random.bytes() : random.number();
    const std::int64_t decimals = static_cast<std::int64_t>(random.below(50)) - 10;
    const std::int32_t type = kTypes[random.below(std::size(kTypes))];
    expect_as_reference(text, random.below(2) == 0 ? 0 : decimals, type,
                        random.below(2) == 0 ? '.' : ',');
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace test
