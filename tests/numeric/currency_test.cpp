// Custom currencies: patterns and their parts, the process's five, the save slots, every door.
#include <iocv/host.h>
#include <iocv/iocv.h>

#include "frame/settings.h"
#include "numeric/custom_currency.h"
#include "support/guarded.h"

namespace {

using test::Guarded;
using test::shown;

// Restores the five empty patterns and the empty slots.
class Currency : public testing::Test {
 protected:
  ~Currency() override {
    for (int i = 0; i < 5; ++i) currencyFormat::Set(i, "");
    for (int slot = 0; slot < 5; ++slot) currencyFormat::Save(slot);
  }
};

struct Parts {
  const char* negative_prefix;
  const char* prefix;
  const char* suffix;
  const char* negative_suffix;
  const char* decimal;
};

void expect_parts(const customCurrency& currency, const Parts& parts) {
  EXPECT_EQ(currency.getNegativePrefix(), parts.negative_prefix);
  EXPECT_EQ(currency.getPrefix(), parts.prefix);
  EXPECT_EQ(currency.getSuffix(), parts.suffix);
  EXPECT_EQ(currency.getNegativeSuffix(), parts.negative_suffix);
  EXPECT_EQ(currency.getDecimal(), parts.decimal);
}

TEST(CurrencyPattern, IsTakenApartAndRebuilt) {
  struct Case {
    const char* pattern;
    Parts parts;
    const char* rebuilt;
    const char* escaped;
  };
  constexpr Case kCases[] = {
      {"", {"", "", "", "", "."}, "", ""},
      {"-,$,,CR", {"-", "$", "", "CR", "."}, "-,$,,CR", "-,$,,CR"},
      {"-.'.EUR..", {"-", ".EUR", "", "", ","}, "-..EUR..", "-.'.EUR.."},
      {",,EUR,", {"", "", "EUR", "", "."}, ",,EUR,", ",,EUR,"},
      {"...", {"", "", "", "", ","}, "...", "..."},
      // Without a separator everything is the negative prefix, and nothing joins the texts.
      {"abc", {"abc", "", "", "", "."}, "abc", "abc"},
      {"'.", {".", "", "", "", "."}, ".", "."},
      // Fewer than three separators leave the last texts empty; a fourth and more drop theirs.
      {"a,b", {"a", "b", "", "", "."}, "a,b,,", "a,b,,"},
      {"a,b,c,d,e,f", {"a", "b", "c", "d", "."}, "a,b,c,d", "a,b,c,d"},
      {"a,b,c,d,'e,f", {"a", "b", "c", "d", "."}, "a,b,c,d", "a,b,c,d"},
      // The first separator decides; the other character is text.
      {"a,b.c,d.,", {"a", "b.c", "d.", "", "."}, "a,b.c,d.,", "a,b.c,d.,"},
      {"a.b,c.d,.", {"a", "b,c", "d,", "", ","}, "a.b,c.d,.", "a.b,c.d,."},
      // Either quote takes the next byte as it stands, another quote too; at the end it is nothing.
      {"'-,\"$,\"','\"", {"-", "$", "'", "\"", "."}, "-,$,',\"", "-,$,'','\""},
      {"''',,\"\"\",,'", {"',", "\",", "", "", "."}, "',,\",,,", "''',,'\"',,,"},
      {"a,b,c,d'", {"a", "b", "c", "d", "."}, "a,b,c,d", "a,b,c,d"},
      {"a,b,c,d\"", {"a", "b", "c", "d", "."}, "a,b,c,d", "a,b,c,d"},
      {"'", {"", "", "", "", "."}, "", ""},
      {"'x'y,z", {"xy", "z", "", "", "."}, "xy,z,,", "xy,z,,"},
      {" - , $ ,  ,  ", {" - ", " $ ", "  ", "  ", "."}, " - , $ ,  ,  ", " - , $ ,  ,  "},
      {"minus ,prefix ,suffix,negative suffix",
       {"minus ", "prefix ", "suffix", "negative suffix", "."},
       "minus ,prefix ,suffix,negative suffix",
       "minus ,prefix ,suffix,negative suffix"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.pattern);
    customCurrency currency;
    currency.Set(c.pattern);
    expect_parts(currency, c.parts);
    EXPECT_EQ(currency.Get(), c.rebuilt);
    EXPECT_EQ(currency.GetEscaped(), c.escaped);
  }
}

TEST(CurrencyPattern, SetTellsWhetherTheRebuiltTextDiffers) {
  struct Case {
    const char* pattern;
    bool first;
    bool second;
  };
  constexpr Case kCases[] = {
      {"", false, false},        {"-,$,,CR", true, false},    {"abc", true, false},
      {"a,b,c,d", true, false},  {"a,b,c,d,e,f", true, true}, {"a,b", true, true},
      {"-.'.EUR..", true, true}, {"'", true, true},           {"'a,b,c,d", true, true},
      {"a,b,c,d ", true, false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.pattern);
    customCurrency currency;
    EXPECT_EQ(currency.Set(c.pattern), c.first);
    EXPECT_EQ(currency.Set(c.pattern), c.second);
  }
}

TEST(CurrencyPattern, EveryFieldIsClearedByTheNextPattern) {
  customCurrency currency;
  currency.Set("a.b.c.d");
  EXPECT_TRUE(currency.Set(""));
  expect_parts(currency, {"", "", "", "", "."});
  EXPECT_EQ(currency.Get(), "");
}

TEST(CurrencyPattern, CopiesAllFields) {
  customCurrency source;
  source.Set("a.b.c.d");
  const customCurrency copy(source);
  customCurrency assigned;
  assigned = source;
  source.Set("");
  for (const customCurrency* currency : {&copy, static_cast<const customCurrency*>(&assigned)}) {
    expect_parts(*currency, {"a", "b", "c", "d", ","});
    EXPECT_EQ(currency->Get(), "a.b.c.d");
  }
}

// All patterns of up to 7 bytes over a small alphabet: what GetEscaped writes is read back as the
// same texts, unless the other separator stands unescaped before the first separator.
TEST(CurrencyPattern, TheEscapedFormReadsBackToTheSameTexts) {
  constexpr std::string_view kAlphabet = "x.,'\"";
  std::vector<std::string> patterns = {""};
  std::size_t exceptions = 0;
  for (std::size_t first = 0, length = 0; length <= 7; ++length) {
    const std::size_t last = patterns.size();
    for (std::size_t i = first; i < last; ++i) {
      customCurrency currency;
      currency.Set(patterns[i]);
      const std::string written = currency.GetEscaped();
      customCurrency again;
      again.Set(written);
      const bool same =
          again.getPrefix() == currency.getPrefix() && again.getSuffix() == currency.getSuffix() &&
          again.getNegativePrefix() == currency.getNegativePrefix() &&
          again.getNegativeSuffix() == currency.getNegativeSuffix() &&
          again.getDecimal() == currency.getDecimal() && again.Get() == currency.Get();
      const char other = currency.getDecimal()[0];  // for both kinds of pattern
      const bool no_separator = currency.Get() == currency.getNegativePrefix();
      const bool exception =
          currency.getNegativePrefix().find(other) != std::string::npos ||
          (no_separator && currency.getNegativePrefix().find(',') != std::string::npos);
      ASSERT_EQ(same, !exception) << patterns[i] << " -> " << written;
      exceptions += exception;
      if (length < 7) {
        for (const char byte : kAlphabet) patterns.push_back(patterns[i] + byte);
      }
    }
    first = last;
  }
  EXPECT_GT(exceptions, 0U);
  EXPECT_EQ(patterns.size(), 97656U);  // (5^8 - 1) / 4
}

TEST_F(Currency, StartsAsTheEmptyPattern) {
  EXPECT_EQ(currencyFormat::getMaxCustomCurrencies(), 5);
  for (int i = 0; i < 5; ++i) {
    expect_parts(currencyFormat::GetCCX(i), {"", "", "", "", "."});
    EXPECT_EQ(currencyFormat::Get(i), "");
  }
}

TEST_F(Currency, EachIndexIsACurrencyOfItsOwn) {
  currencyFormat currencies;
  for (int i = 0; i < 5; ++i) {
    EXPECT_TRUE(currencies.Set(i, std::string(static_cast<std::size_t>(i) + 1, 'p') + ",$,,"));
  }
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(currencies.Get(i), std::string(static_cast<std::size_t>(i) + 1, 'p') + ",$,,");
    EXPECT_EQ(currencies.GetEscaped(i), currencies.Get(i));
    int lengths[4] = {9, 9, 9, 9};
    currencies.GetLengths(i, lengths[0], lengths[1], lengths[2], lengths[3]);
    EXPECT_EQ(lengths[0], 1);
    EXPECT_EQ(lengths[1], 0);
    EXPECT_EQ(lengths[2], i + 1);
    EXPECT_EQ(lengths[3], 0);
  }
}

TEST_F(Currency, BadIndexesChangeNothingAndAreEmpty) {
  currencyFormat::Set(0, "a.b.c.d");
  for (const int index : {5, 6, -1, 100, std::numeric_limits<int>::min()}) {
    EXPECT_FALSE(currencyFormat::Set(index, "-,$,,CR"));
    EXPECT_EQ(currencyFormat::Get(index), "");
    EXPECT_EQ(currencyFormat::GetEscaped(index), "");
    int lengths[4] = {9, 9, 9, 9};
    currencyFormat::GetLengths(index, lengths[0], lengths[1], lengths[2], lengths[3]);
    for (const int length : lengths) EXPECT_EQ(length, 0);
    EXPECT_EQ(&currencyFormat::GetCCX(index), &currencyFormat::GetCCX(0));
    EXPECT_FALSE(currencyFormat::Save(index));
    EXPECT_FALSE(currencyFormat::Restore(index));
    EXPECT_EQ(CSetCustomCurrency(index, "-,$,,CR"), 0);
    char pattern[] = "-,$,,CR";
    EXPECT_EQ(IocvSetCCFormat(index, pattern), 2);
  }
  EXPECT_EQ(CSetCustomCurrency(0, nullptr), 0);
  EXPECT_EQ(currencyFormat::Get(0), "a.b.c.d");
  for (int i = 1; i < 5; ++i) EXPECT_EQ(currencyFormat::Get(i), "");
}

TEST_F(Currency, SlotsHoldAllFive) {
  for (int i = 0; i < 5; ++i) currencyFormat::Set(i, "a" + std::to_string(i) + ",b,c,d");
  EXPECT_TRUE(currencyFormat::Save(3));
  for (int i = 0; i < 5; ++i) currencyFormat::Set(i, "changed");
  EXPECT_TRUE(currencyFormat::Save(0));
  EXPECT_TRUE(currencyFormat::Restore(3));
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(currencyFormat::Get(i), "a" + std::to_string(i) + ",b,c,d");
  }
  EXPECT_TRUE(currencyFormat::Restore(0));
  for (int i = 0; i < 5; ++i) EXPECT_EQ(currencyFormat::Get(i), "changed");
  EXPECT_TRUE(currencyFormat::Restore(4));  // never saved
  for (int i = 0; i < 5; ++i) expect_parts(currencyFormat::GetCCX(i), {"", "", "", "", "."});
}

std::int64_t set(std::int64_t n, std::string_view text) {
  return setcustomcurrency_(&n, text.data(), static_cast<std::int64_t>(text.size()));
}

TEST_F(Currency, TheFlatSetterCountsFromOneAndTakesTheWholeText) {
  EXPECT_EQ(set(1, "-,$,,CR  "), -1);
  EXPECT_EQ(currencyFormat::GetCCX(0).getNegativeSuffix(), "CR  ");
  EXPECT_EQ(set(1, "-,$,,CR  "), 0);
  EXPECT_EQ(set(5, "e,,,"), -1);
  EXPECT_EQ(currencyFormat::Get(4), "e,,,");
  EXPECT_EQ(set(1, ""), -1);
  EXPECT_EQ(currencyFormat::Get(0), "");
  set(1, "x");
  const std::int64_t n = 1;
  EXPECT_EQ(setcustomcurrency_(&n, "abc", -7), -1);  // a negative length is an empty text
  EXPECT_EQ(currencyFormat::Get(0), "");
  for (const std::int64_t bad : {std::int64_t{0}, std::int64_t{6}, std::int64_t{-1},
                                 (std::int64_t{1} << 32) + 1, INT64_MIN, INT64_MAX}) {
    EXPECT_EQ(set(bad, "z,,,"), 0);
  }
  EXPECT_EQ(currencyFormat::Get(0), "");
}

TEST_F(Currency, TheTerminatedSettersCountFromZero) {
  EXPECT_EQ(CSetCustomCurrency(0, "-,$,,CR"), 1);
  EXPECT_EQ(CSetCustomCurrency(0, "-,$,,CR"), 0);
  EXPECT_EQ(CSetCustomCurrency(4, "e,,,"), 1);
  EXPECT_EQ(CSetCustomCurrency(0, nullptr), 0);
  EXPECT_EQ(currencyFormat::Get(0), "-,$,,CR");
  EXPECT_EQ(currencyFormat::Get(4), "e,,,");
  char pattern[] = "a.b.c.d";
  EXPECT_EQ(IocvSetCCFormat(2, pattern), 0);
  EXPECT_EQ(IocvSetCCFormat(2, pattern), 0);  // stored, though nothing changed
  EXPECT_EQ(IocvSetCCFormat(2, nullptr), 2);
  EXPECT_EQ(currencyFormat::Get(2), "a.b.c.d");
}

TEST_F(Currency, IocvsetOption2CountsFromOne) {
  struct Case {
    std::int32_t number;
    std::int64_t answer;
  };
  constexpr Case kCases[] = {{5, 0}, {5, 0}, {1, 0}, {0, 2}, {6, 2}, {-1, 2}, {INT32_MIN, 2}};
  constexpr char kPattern[] = "-,$,,CR";
  for (const Case& c : kCases) {
    Guarded data(sizeof c.number + sizeof kPattern);
    std::memcpy(data.data(), &c.number, sizeof c.number);
    std::memcpy(data.data() + sizeof c.number, kPattern, sizeof kPattern);
    const std::int32_t option = 2;
    EXPECT_EQ(iocvset_(&option, data.data()), c.answer) << c.number;
  }
  EXPECT_EQ(currencyFormat::Get(0), kPattern);
  EXPECT_EQ(currencyFormat::Get(4), kPattern);
  for (int i = 1; i < 4; ++i) EXPECT_EQ(currencyFormat::Get(i), "");
  const std::int32_t unknown = 7;
  EXPECT_EQ(iocvset_(&unknown, kPattern), 1);
}

TEST_F(Currency, TheFlatGettersCopyAtMost256BytesAndTheBuffersLength) {
  using Getter = decltype(&getcustomcurrency_);
  const std::string long_pattern(300, 'p');
  struct Case {
    Getter get;
    std::int64_t n;
    std::string pattern;
    std::size_t room;
    std::string copied;
  };
  const Case cases[] = {
      {getcustomcurrency_, 1, "-.'.EUR..", 20, "-..EUR.."},
      {getcustomcurrency_, 5, "-,$,,CR", 20, "-,$,,CR"},
      {getcustomcurrency_, 1, "-,$,,CR", 7, "-,$,,CR"},
      {getcustomcurrency_, 1, "-,$,,CR", 3, "-,$"},
      {getcustomcurrency_, 1, "-,$,,CR", 1, "-"},
      {getcustomcurrency_, 1, "-,$,,CR", 0, ""},
      {getcustomcurrency_, 1, "", 20, ""},
      {getcustomcurrency_, 1, long_pattern, 400, long_pattern.substr(0, 256)},
      {getcustomcurrency_, 1, long_pattern, 256, long_pattern.substr(0, 256)},
      {getcustomcurrency_, 1, long_pattern, 255, long_pattern.substr(0, 255)},
      {getcustomcurrencyescaped_, 1, "-.'.EUR..", 20, "-.'.EUR.."},
      {getcustomcurrencyescaped_, 5, "-.'.EUR..", 4, "-.'."},
      {getcustomcurrencyescaped_, 1, long_pattern, 400, long_pattern.substr(0, 256)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pattern + " into " + std::to_string(c.room));
    set(c.n, c.pattern);
    Guarded buffer(c.room);
    std::int64_t count = 99;
    const std::int64_t some = c.get(&c.n, buffer.data(), &count, static_cast<std::int64_t>(c.room));
    EXPECT_EQ(count, static_cast<std::int64_t>(c.copied.size()));
    EXPECT_EQ(some, c.copied.empty() ? 0 : -1);
    EXPECT_EQ(shown(buffer.text()),
              shown(c.copied + std::string(c.room - c.copied.size(), Guarded::kSentinel)));
    EXPECT_TRUE(buffer.intact());
  }
  for (const Getter get : {getcustomcurrency_, getcustomcurrencyescaped_}) {
    for (const std::int64_t bad : {std::int64_t{0}, std::int64_t{6}, std::int64_t{-1},
                                   (std::int64_t{1} << 32) + 1, INT64_MIN, INT64_MAX}) {
      Guarded buffer(8);
      std::int64_t count = 99;
      EXPECT_EQ(get(&bad, buffer.data(), &count, 8), 0);
      EXPECT_EQ(count, 0);
      EXPECT_EQ(buffer.text(), std::string(8, Guarded::kSentinel));
    }
    const std::int64_t n = 1;
    std::int64_t count = 99;
    EXPECT_EQ(get(&n, nullptr, &count, INT64_MIN), 0);
    EXPECT_EQ(count, 0);
  }
}

TEST_F(Currency, TheFlatLengthsTellTheDecimalCharacter) {
  set(1, "-,$,,CR");
  set(5, "(.EUR .abc.def)g");
  struct Case {
    std::int64_t n;
    std::array<std::int64_t, 4> lengths;  // prefix, suffix, negative prefix, negative suffix
    std::int64_t dot;
  };
  constexpr Case kCases[] = {
      {1, {1, 0, 1, 2}, -1}, {2, {0, 0, 0, 0}, -1}, {5, {4, 3, 1, 5}, 0},
      {0, {0, 0, 0, 0}, -1}, {6, {0, 0, 0, 0}, -1}, {INT64_MIN, {0, 0, 0, 0}, -1},
  };
  for (const Case& c : kCases) {
    std::array<std::int64_t, 4> lengths = {9, 9, 9, 9};
    EXPECT_EQ(getcustomcurrencylengths_(&c.n, &lengths[0], &lengths[1], &lengths[2], &lengths[3]),
              c.dot)
        << c.n;
    EXPECT_EQ(lengths, c.lengths) << c.n;
  }
}

TEST_F(Currency, TheFlatSlotsCountFromZero) {
  set(2, "a,b,c,d");
  const auto save = [](std::int64_t slot) { return savecustomcurrency_(&slot); };
  const auto restore = [](std::int64_t slot) { return restorecustomcurrency_(&slot); };
  EXPECT_EQ(save(0), -1);
  set(2, "x");
  EXPECT_EQ(save(4), -1);
  EXPECT_EQ(restore(0), -1);
  EXPECT_EQ(currencyFormat::Get(1), "a,b,c,d");
  EXPECT_EQ(restore(4), -1);
  EXPECT_EQ(currencyFormat::Get(1), "x");
  for (const std::int64_t bad :
       {std::int64_t{5}, std::int64_t{-1}, std::int64_t{1} << 32, INT64_MIN, INT64_MAX}) {
    EXPECT_EQ(save(bad), 0);
    EXPECT_EQ(restore(bad), 0);
    EXPECT_EQ(currencyFormat::Get(1), "x");
  }
}

TEST_F(Currency, ConversionsSeeTheProcesssCurrencies) {
  set(3, "a.b.c.d");
  const iocv::Settings settings = iocv::Settings::current();
  for (int i = 0; i < 5; ++i) EXPECT_EQ(&(*settings.currencies)[i], &currencyFormat::GetCCX(i));
  const iocv::Settings fresh;
  expect_parts((*fresh.currencies)[2], {"", "", "", "", "."});
}

}  // namespace
