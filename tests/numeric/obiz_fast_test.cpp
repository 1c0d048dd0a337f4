// Z input: what the attempt at ordinary fields answers is what the plain steps answer.
#include "numeric/obiz.h"

#include "frame/attempts.h"
#include "numeric/obiz_fast.h"
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
  using enum iocv::Status;
  constexpr auto kLeft = iocv::Status{-1};  // to the plain steps
  struct Case {
    std::string_view text;
    std::int64_t decimals;
    iocv::Status status;
    double value = -99;
  };
  constexpr Case kCases[] = {
      {"0012L", 0, ok, -123},
      {"   12C", 2, ok, 1.23},
      {"7", 0, ok, 7},
      {"}", 0, ok, 0},
      {"12345678901234R", 3, ok, -123456789012.349},
      {"0123456789012345", 0, ok, 123456789012345},
      {"9007199254740992", 0, ok, 9007199254740992},
      {"900719925474099K", 2, ok, -90071992547409.92},
      {"9007199254740993", 0, kLeft},
      {"00123456789012345", 0, kLeft},
      {"12", -1, kLeft},
      {"12", 16, kLeft},
      {"12 ", 0, kLeft},
      {"   ", 0, ok, -77},
      {"               ", 2, ok, -77},
      {"                ", 0, ok, -77},
      {"                 ", 0, kLeft},
      {"", 0, kLeft},
      {"1 2", 0, number_character},
      {"1  ", 0, kLeft},
      {"12X", 0, zone_character},
      {"L2", 0, number_character},
      {"1.2", 2, ok, 1.2},
      {".2", 0, ok, .2},
      {"  1.25L", 2, ok, -1.253},
      {"  12L.", 2, ok, -123},
      {"  .", 0, number_character},
      {".", 0, number_character},
      {" ..", 0, zone_character},
      {"1..", 0, zone_character},
      {"1.2.3", 0, number_character},
      {"1.23.", 0, number_character},
      {"12 .", 0, zone_character},
      {"1 2.", 0, number_character},
      {"+3.", 0, number_character},
      {"+.", 0, zone_character},
      {"1.X", 0, zone_character},
      {" +30", 2, number_character},
      {" 3E3", 2, number_character},
      {" 3E", 2, ok, .35},
      {"1234567890123.L", 0, ok, -1234567890123.3},
      {"12345678901234.", 2, ok, 12345678901234},
  };
  for (const Case& c : kCases) {
    iocv::Settings settings;
    settings.blank_value = -77;
    settings.system_missing = -99;
    iocv::Read<double> read;
    const bool answers = iocv::read_by<iocv::ZonedReader>(c.text, c.decimals, settings, read);
    EXPECT_EQ(answers, c.status != kLeft) << c.text;
    if (!answers) continue;
    EXPECT_EQ(read.status, c.status) << c.text;
    EXPECT_EQ(read.value, c.value) << c.text;
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
                                         "9007199254740992",
                                         "900719925474099K",
                                         "9007199254740993",
                                         "900719925474.999L",
                                         "  0012345678901J",
                                         "                7L",
                                         " 000             5",
                                         "  1.5J",
                                         "   15J.",
                                         " ."};
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
  const std::size_t width = below(4) == 0 ? below(kWidest + 1) : below(17);
  std::string text(width, '0');
  if (width == 0) return text;
  const bool nines = below(8) == 0;
  for (char& byte : text) byte = static_cast<char>(nines ? '9' : '0' + below(10));
  if (width >= 16 && below(8) < 3) {  // where doubles begin to be even
    text.replace(width - 16, 16, std::to_string((std::uint64_t{1} << 53) + below(64) - 32));
  }
  text.back() = kLast[below(kLast.size())];
  for (std::size_t zeros = below(width + 1); zeros > 0; --zeros) text[zeros - 1] = '0';
  for (std::size_t blanks = below(width + 1); blanks > 0; --blanks) text[blanks - 1] = ' ';
  if (below(8) == 0) text.back() = ' ';
  if (below(4) == 0) text[below(width)] = '.';
  if (below(16) == 0) text.back() = '.';
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
