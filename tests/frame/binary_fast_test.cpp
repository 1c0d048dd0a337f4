// IB, PIB and P input: what the attempts at ordinary fields answer is what the plain steps answer.
#include <algorithm>
#include <span>

#include "frame/attempts.h"
#include "frame/obiib.h"
#include "frame/obiib_fast.h"
#include "frame/obip.h"
#include "frame/obip_fast.h"
#include "frame/obipib.h"
#include "support/read_both_ways.h"

namespace {

using Reader = iocv::Read<double>(std::string_view, std::int64_t, const iocv::Settings&) noexcept;
using Attempt = bool(std::string_view, std::int64_t, const iocv::Settings&,
                     iocv::Read<double>&) noexcept;

struct Format {
  const char* name;
  Reader* fast;
  Reader* plain;
  Attempt* attempt;
};

constexpr Format kIb = {"IB", iocv::read_ib, iocv::read_ib_plain,
                        iocv::read_by<iocv::BinaryReader<true>>};
constexpr Format kPib = {"PIB", iocv::read_pib, iocv::read_pib_plain,
                         iocv::read_by<iocv::BinaryReader<false>>};
constexpr Format kP = {"P", iocv::read_p, iocv::read_p_plain, iocv::read_by<iocv::PackedReader>};
constexpr Format kFormats[] = {kIb, kPib, kP};

constexpr std::size_t kWidest = 20;

class Fields : test::BothWays {
 public:
  Fields() : BothWays(kWidest) {}

  void expect_same(const Format& format, std::string_view bytes, std::int64_t decimals) const {
    iocv::Settings settings;
    settings.system_missing = -99;
    BothWays::expect_same(
        bytes, [&](std::string_view field) { return format.fast(field, decimals, settings); },
        [&](std::string_view field) { return format.plain(field, decimals, settings); },
        [&] { return format.name + (" decimals " + std::to_string(decimals)); });
  }
};

TEST(FastBinaryInput, AnswersWhereItSaysItDoes) {
  struct Case {
    const Format& format;
    std::string_view bytes;
    std::int64_t decimals;
    bool answers;
    double value;
    iocv::Status status = iocv::Status::ok;
  };
  using namespace std::string_view_literals;
  const Case cases[] = {
      {kIb, "\xFE\xFF\xFF\xFF"sv, 0, true, -2},
      {kIb, "\x39\x30\0"sv, 2, true, 123.45},
      {kIb, "\0\0\0\0\0\0\x20\0"sv, 0, true, 9007199254740992},
      {kIb, "\x01\0\0\0\0\0\x20\0"sv, 0, false, 0},
      {kIb, "\0\0\0\0\0\0\xE0\xFF"sv, 0, true, -9007199254740992},
      {kIb, "\xFF\xFF\xFF\xFF\xFF\xFF\xDF\xFF"sv, 0, false, 0},
      {kIb, "\x01"sv, -1, false, 0},
      {kIb, "\x01"sv, 33, false, 0},
      {kIb, "\x01\0\0\0\0\0\0\0\0"sv, 0, false, 0},
      {kIb, ""sv, 0, false, 0},
      {kPib, "\xFE\xFF\xFF\xFF"sv, 0, true, 4294967294},
      {kPib, "\0\0\0\0\0\0\x20\0"sv, 0, true, 9007199254740992},
      {kPib, "\x01\0\0\0\0\0\x20\0"sv, 0, false, 0},
      {kPib, "\0\0\0\0\0\0\0\x80"sv, 0, false, 0},
      {kP, "\x12\x3D"sv, 2, true, -1.23},
      {kP, "\x12\x34\x56\x78\x90\x12\x34\x5C"sv, 0, true, 123456789012345},
      {kP, "\x12\x34"sv, 1, true, 123.4, iocv::Status::packed_sign},
      {kP, "\x99\x99\x99\x99\x99\x99\x99\x99"sv, 0, true, 1e16, iocv::Status::packed_sign},
      {kP, "\x1A\x3D"sv, 0, true, -99, iocv::Status::packed_digit},
      {kP, "\x12\xD3"sv, 0, true, -99, iocv::Status::packed_digit},
      {kP, "\xAD"sv, 0, true, -99, iocv::Status::packed_digit},
      {kP, "\0\x12\x34\x56\x78\x90\x12\x34\x5C"sv, 0, true, 123456789012345},
      {kP, "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x12\x3D"sv, 2, true, -1.23},
      {kP, "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x3C"sv, 0, false, 0},
      {kP, "\x01\x12\x34\x56\x78\x90\x12\x34\x5C"sv, 0, false, 0},
      {kP, "\x10\0\0\0\0\0\0\0\0\0\0\0\0\0\x12\x3C"sv, 0, false, 0},
      {kP, "\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\x12\x3C"sv, 0, false, 0},
  };
  for (const Case& c : cases) {
    iocv::Settings settings;
    settings.system_missing = -99;
    iocv::Read<double> read = {0, iocv::Status::ok};
    const std::string name = c.format.name + (' ' + test::shown(c.bytes));
    EXPECT_EQ(c.format.attempt(c.bytes, c.decimals, settings, read), c.answers) << name;
    if (!c.answers) continue;
    EXPECT_EQ(read.value, c.value) << name;
    EXPECT_EQ(read.status, c.status) << name;
  }
}

// The sixteenth digit rounds to even, and so may each further one: 9007199254740993 becomes ...992,
// ten times that is a double, but not the one next to the whole number, which is ...936.
TEST(FastBinaryInput, PackedDigitsBeyondFifteenFoldByteByByte) {
  struct Case {
    std::string_view bytes;
    double value;
  };
  using namespace std::string_view_literals;
  const Case cases[] = {
      {"\x90\x07\x19\x92\x54\x74\x09\x92\x0C"sv, 90071992547409920},
      {"\x90\x07\x19\x92\x54\x74\x09\x93\x0C"sv, 90071992547409920},
      {"\x90\x07\x19\x92\x54\x74\x09\x97\x0D"sv, -90071992547409952},
      {"\0\x90\x07\x19\x92\x54\x74\x09\x93\x0C"sv, 90071992547409920},
      {"\x83\x99\x58\x91\x16\x83\x74\x56\x60\x7C"sv, 8399589116837455872},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(iocv::read_p(c.bytes, 0, iocv::Settings()).value, c.value) << test::shown(c.bytes);
  }
}

TEST(FastBinaryInput, FieldsOfOneAndTwoBytesReadAsByThePlainSteps) {
  const Fields fields;
  for (const Format& format : kFormats) {
    for (unsigned word = 0; word < 65536; ++word) {
      const char bytes[2] = {static_cast<char>(word), static_cast<char>(word >> 8)};
      for (const std::int64_t decimals : {0, 2}) {
        fields.expect_same(format, {bytes, 2}, decimals);
        if (word < 256) fields.expect_same(format, {bytes, 1}, decimals);
        if (HasFatalFailure()) return;
      }
    }
  }
}

class RandomField {
 public:
  struct Case {
    const Format& format;
    std::string bytes;
    std::int64_t decimals;
  };

  explicit RandomField(std::span<const Format> formats) : formats_(formats) {}

  // Three in eight stand at the edges of what the attempts answer.
  Case next() {
    Case c = {formats_[below(formats_.size())], "",
              below(8) == 0 ? static_cast<std::int64_t>(below(80)) - 40
                            : static_cast<std::int64_t>(below(7))};
    const std::size_t width = below(kWidest + 1);
    c.bytes = c.format.plain == iocv::read_p_plain ? packed(width) : integer(width);
    return c;
  }

 private:
  std::uint64_t below(std::uint64_t bound) { return random_() % bound; }

  std::string integer(std::size_t width) {
    std::uint64_t word = random_() >> below(64);
    if (below(8) < 3) {
      word = (std::uint64_t{1} << below(64)) + below(64) - 32;
      if (below(2) == 0) word = (std::uint64_t{1} << 53) + below(64) - 32;
    }
    if (below(2) == 0) word = 0 - word;
    std::string bytes(width, word >> 63 != 0 ? '\xFF' : '\0');
    for (std::size_t i = 0; i < std::min<std::size_t>(width, 8); ++i) {
      bytes[i] = static_cast<char>(word >> 8 * i);
    }
    return bytes;
  }

  std::string packed(std::size_t width) {
    std::string bytes(width, '\0');
    for (char& byte : bytes) byte = static_cast<char>(16 * below(10) + below(10));
    if (width == 0) return bytes;
    const std::size_t zeros = below(8) < 3 ? below(width) : 0;
    std::fill_n(bytes.begin(), zeros, '\0');
    if (below(8) < 3 && width - zeros >= 8) {  // sixteen digits where doubles begin to be even
      std::uint64_t number = (std::uint64_t{1} << 53) + below(64) - 32;
      for (std::size_t i = 8; i-- > 0; number /= 100) {
        bytes[zeros + i] = static_cast<char>(16 * (number / 10 % 10) + number % 10);
      }
    }
    if (below(8) != 0) {
      bytes[width - 1] = static_cast<char>((bytes[width - 1] & 0xF0) | (10 + below(6)));
    }
    if (below(8) < 3) bytes[below(width)] = static_cast<char>(random_());
    return bytes;
  }

  std::span<const Format> formats_;
  std::mt19937_64 random_ = test::random_source();
};

void compare_random_fields(std::span<const Format> formats, int count) {
  SCOPED_TRACE(test::seed_text());
  const Fields fields;
  RandomField random(formats);
  for (int i = 0; i < count; ++i) {
    const RandomField::Case c = random.next();
    fields.expect_same(c.format, c.bytes, c.decimals);
    if (testing::Test::HasFatalFailure()) return;
  }
}

constexpr std::span<const Format> kAll = kFormats;
constexpr std::span<const Format> kIntegers = kAll.first(2);
constexpr std::span<const Format> kPacked = kAll.last(1);
constexpr int kSome = 1'000'000;
constexpr int kMany = 25'000'000;

TEST(FastBinaryInput, RandomFieldsReadAsByThePlainSteps) {
  compare_random_fields(kIntegers, kSome);
}
TEST(FastPackedInput, RandomFieldsReadAsByThePlainSteps) { compare_random_fields(kPacked, kSome); }
TEST(LongFastBinaryInput, RandomFieldsReadAsByThePlainSteps) {
  compare_random_fields(kIntegers, kMany);
}
TEST(LongFastPackedInput, RandomFieldsReadAsByThePlainSteps) {
  compare_random_fields(kPacked, kMany);
}

}  // namespace
