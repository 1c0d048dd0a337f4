// Z input: what the attempt at ordinary fields answers is what the plain steps answer.
#include "numeric/obiz.h"
#include "support/read_both_ways.h"

namespace {

constexpr std::size_t kWidest = 18;

class Fields : test::BothWays {
 public:
  Fields() : BothWays(kWidest) {}

  void expect_same(std::string_view text, std::int64_t decimals) const {
    iocv::Settings settings;
    settings.system_missing = -99;
    settings.blank_value = -77;
    BothWays::expect_same(
        text, [&](std::string_view field) { return iocv::read_z(field, decimals, settings); },
        [&](std::string_view field) { return iocv::read_z_plain(field, decimals, settings); },
        [&] { return "decimals " + std::to_string(decimals); });
  }
};

TEST(FastZInput, AnswersWhereItSaysItDoes) {
  struct Case {
    std::string_view text;
    std::int64_t decimals;
    bool answers;
    double value;
  };
  constexpr Case kCases[] = {
      {"0012L", 0, true, -123},
      {"   12C", 2, true, 1.23},
      {"7", 0, true, 7},
      {"}", 0, true, 0},
      {"12345678901234R", 3, true, -123456789012.349},
      {"0123456789012345", 0, false, 0},
      {"12", -1, false, 0},
      {"12", 16, false, 0},
      {"12 ", 0, false, 0},
      {"1 2", 0, false, 0},
      {"1.2", 0, false, 0},
      {"12X", 0, false, 0},
      {"L2", 0, false, 0},
      {"   ", 0, true, -77},
      {"               ", 2, true, -77},
      {"                ", 0, false, 0},
      {"", 0, false, 0},
  };
  for (const Case& c : kCases) {
    double value = 0;
    iocv::Settings settings;
    settings.blank_value = -77;
    EXPECT_EQ(iocv::try_z(c.text.data(), std::ssize(c.text), c.decimals, iocv::FormatCode::z,
                          settings, value),
              c.answers)
        << c.text;
    EXPECT_EQ(c.answers ? value : 0, c.value) << c.text;
  }
}

TEST(FastZInput, EveryByteAtEveryPlaceReadsAsByThePlainSteps) {
  constexpr std::string_view kTexts[] = {"",
                                         "5",
                                         "1L",
                                         " 12",
                                         "012}",
                                         "  12A",
                                         "123456J",
                                         "  00123L",
                                         "   123456",
                                         "12345678901234J",
                                         "012345678901234J",
                                         "       12 ",
                                         "0012345678901234J",
                                         "000000000000000123",
                                         "  0012345678901J",
                                         "                7L",
                                         " 000             5",
                                         "  1.5J"};
  const Fields fields;
  for (const std::string_view original : kTexts) {
    for (std::size_t place = 0; place < std::max<std::size_t>(original.size(), 1); ++place) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string text(original);
        if (!text.empty()) text[place] = static_cast<char>(byte);
        for (const std::int64_t decimals : {0, 2}) {
          fields.expect_same(text, decimals);
          if (HasFatalFailure()) return;
        }
      }
    }
  }
}

std::string random_text(std::mt19937_64& random) {
  const auto below = [&](std::uint64_t bound) { return random() % bound; };
  constexpr std::string_view kLast = "0123456789{ABCDEFGHI}JKLMNOPQR}JKLMNOPQR";
  const std::size_t width = below(4) == 0 ? below(kWidest + 1) : below(16);
  std::string text(width, '0');
  if (width == 0) return text;
  const bool nines = below(8) == 0;
  for (char& byte : text) byte = static_cast<char>(nines ? '9' : '0' + below(10));
  text.back() = kLast[below(kLast.size())];
  for (std::size_t zeros = below(width + 1); zeros > 0; --zeros) text[zeros - 1] = '0';
  for (std::size_t blanks = below(width + 1); blanks > 0; --blanks) text[blanks - 1] = ' ';
  if (below(8) == 0) text.back() = ' ';
  if (below(8) < 2) {
    constexpr std::string_view kBytes("09.-+ {}AIJRSZ\0\x10\x7F\x80\xB0\xFF", 20);
    text[below(width)] = kBytes[below(kBytes.size())];
  }
  return text;
}

void compare_random_fields(int count) {
  SCOPED_TRACE(test::seed_text());
  const Fields fields;
  std::mt19937_64 random = test::random_source();
  for (int i = 0; i < count; ++i) {
    const std::string text = random_text(random);
    const auto decimals =
        static_cast<std::int64_t>(random() % 8 == 0 ? random() % 24 : random() % 5);
    fields.expect_same(text, decimals - (random() % 16 == 0 ? 4 : 0));
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(FastZInput, RandomFieldsReadAsByThePlainSteps) { compare_random_fields(1'000'000); }

TEST(LongFastZInput, RandomFieldsReadAsByThePlainSteps) { compare_random_fields(25'000'000); }

}  // namespace
