// All readers of dates and times over whole families of texts, beside a reference of their own.
#include <iocv/iocv.h>
#include <iocv/platform.h>

#include <algorithm>
#include <map>
#include <set>
#include <thread>

#include "datetime/reading.h"
#include "reference.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::read_in_place;
using test::Reading;

constexpr std::array kCodes = {20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 38, 39, 86};

// Every status that a format may answer.
const std::map<int, std::set<std::int64_t>> kStatuses = {
    {20, {0, 1137, 1196, 608}},
    {21, {0, 1146, 1192}},
    {22, {0, 1139}},
    {23, {0, 1136, 1195, 608}},
    {24, {0, 1142}},
    {25, {0, 1138}},
    {26, {0, 1147}},
    {27, {0, 1143}},
    {28, {0, 1144}},
    {29, {0, 1145}},
    {30, {0, 1148}},
    {38, {0, 1151, 1194, 608}},
    {39, {0, 1152, 1193, 608}},
    {86, {0, 1190}},
};

void set_decimal(char decimal) { decimal == '.' ? iocvsetdecchardot_() : iocvsetdeccharcomma_(); }

std::string named(std::string_view text, int code, char decimal) {
  return "|" + test::shown(text) + "| type " + std::to_string(code) + " decimal " + decimal;
}

// What holds for every text: the same at both page edges and the second time, a documented status,
// a finite value, system-missing on failure.
void expect_sound(test::FieldEdges& edges, std::string_view text, int code, char decimal,
                  const Reading& read) {
  const Reading again = read_in_place(edges.at_begin(text), code);
  const bool sound = again == read && kStatuses.at(code).contains(read.status) &&
                     std::isfinite(read.value) &&
                     (read.status == 0 || read.value == test::kMissing);
  if (!sound) {
    ADD_FAILURE() << named(text, code, decimal) << " reads as " << test::described(read.value)
                  << ", " << read.status << " and " << test::described(again.value) << ", "
                  << again.status;
  }
}

void expect_as_reference(std::string_view text, int code, char decimal, const Reading& read) {
  const Reading expected = test::reference_read(text, code, {.decimal = decimal});
  if (!(read == expected)) {
    ADD_FAILURE() << named(text, code, decimal) << " reads as " << test::described(read.value)
                  << ", " << read.status << ", not as " << test::described(expected.value) << ", "
                  << expected.status;
  }
}

// Walks every text of up to length pieces.
template <class Visit>
void walk(const std::vector<std::string>& pieces, std::size_t length, std::string& text,
          Visit& visit) {
  visit(text);
  if (length == 0 || testing::Test::HasFailure()) return;
  for (const std::string& piece : pieces) {
    text += piece;
    walk(pieces, length - 1, text, visit);
    text.resize(text.size() - piece.size());
  }
}

class DateTexts : public testing::Test {
 protected:
  DateTexts() { VELTMBsetCodePage("UTF-8"); }

  test::RecordsGuard guard_;
  test::FieldEdges edges_;
};

TEST_F(DateTexts, UpToFourCharactersReadAsTheReferenceSays) {
  std::vector<std::string> alphabet = {"0", "1", "2", "3", "4", "5", "6", "7", "8",   "9",
                                       "T", "i", ".", ",", ":", "-", "/", " ", "\xC3"};
  alphabet.emplace_back(1, '\0');
  for (const char decimal : {'.', ','}) {
    set_decimal(decimal);
    auto visit = [&](const std::string& text) {
      for (const int code : kCodes) {
        const Reading read = read_in_place(edges_.at_end(text), code);
        expect_sound(edges_, text, code, decimal, read);
        expect_as_reference(text, code, decimal, read);
      }
    };
    std::string text;
    walk(alphabet, 4, text, visit);
  }
}

const std::vector<std::string>& parts() {
  static const std::vector<std::string> all = {
      "1", "12", "30",  "2000", "59", "99", "010100", "20000101", "JAN",      "ix", "T",
      "Q", "WK", "feb", "Tu",   "-",  ".",  ":",      " ",        "\xC3\xA9", "+"};
  return all;
}

// Whole parts instead of single characters get far behind the first delimiter.
TEST_F(DateTexts, UpToFourPartsReadAsTheReferenceSays) {
  set_decimal('.');
  std::map<int, int> read_well;
  auto visit = [&](const std::string& text) {
    for (const int code : kCodes) {
      const Reading read = read_in_place(edges_.at_end(text), code);
      expect_as_reference(text, code, '.', read);
      read_well[code] += read.status == 0 && read.value != test::kMissing;
    }
  };
  std::string text;
  walk(parts(), 4, text, visit);
  // Most texts are bad; some of every format are not.
  for (const int code : kCodes) EXPECT_GT(read_well[code], 0) << code;
}

using LongDateTexts = DateTexts;

TEST_F(LongDateTexts, UpToSixPartsReadAsTheReferenceSays) {
  set_decimal('.');
  auto visit = [&](const std::string& text) {
    for (const int code : kCodes) {
      expect_as_reference(text, code, '.', read_in_place(edges_.at_end(text), code));
    }
  };
  std::string text;
  walk(parts(), 6, text, visit);
}

TEST_F(DateTexts, HostileTextsReadAsTheReferenceSays) {
  SCOPED_TRACE(test::seed_text());
  // The tilde stands for a zero byte.
  constexpr std::string_view kPieces[] = {"1",     "2",       "0",        "31",
                                          "12",    "23",      "59",       "2000",
                                          "1999",  "1582",    "99",       "00",
                                          "JAN",   "Sep",     "ix",       "XII",
                                          "viii",  "T",       "Q",        "WK",
                                          "Tu",    "-",       "/",        ".",
                                          ",",     ":",       " ",        "   ",
                                          "+",     "!",       "~",        "\t",
                                          "#",     "$",       "e",        "\xC3\xA9",
                                          "\xC3",  "\xA9",    "01012000", "123015",
                                          "00001", "2000366", "january",  "99999999999999999999"};
  std::mt19937_64 random = test::random_source();
  for (int round = 0; round < 500'000 && !HasFailure(); ++round) {
    const char decimal = random() % 2 == 0 ? '.' : ',';
    set_decimal(decimal);
    std::string text;
    const std::size_t length = 1 + random() % 60;
    const std::size_t pieces = 1 + random() % 12;
    for (std::size_t i = 0; i < pieces && text.size() < length; ++i) {
      text += kPieces[random() % std::size(kPieces)];
    }
    text.resize(std::min(text.size(), length));
    std::replace(text.begin(), text.end(), '~', '\0');
    const int code = kCodes[random() % kCodes.size()];
    const Reading read = read_in_place(edges_.at_end(text), code);
    expect_sound(edges_, text, code, decimal, read);
    expect_as_reference(text, code, decimal, read);
  }
}

TEST_F(DateTexts, AnyBytesAreHarmless) {
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
  for (int round = 0; round < 100'000 && !HasFailure(); ++round) {
    std::string text(1 + random() % 60, ' ');
    for (char& c : text) c = static_cast<char>(random() % 4 == 0 ? random() : '0' + random() % 10);
    const int code = kCodes[random() % kCodes.size()];
    set_decimal('.');
    expect_sound(edges_, text, code, '.', read_in_place(edges_.at_end(text), code));
  }
}

// Long runs of digits overflow to infinity on the way.
TEST_F(DateTexts, NoRunOfDigitsReadsAsInfinity) {
  set_decimal('.');
  for (const char digit : {'0', '1', '9'}) {
    for (const std::size_t length : {79U, 80U, 81U, 307U, 308U, 309U, 310U, 311U, 700U}) {
      const std::string run(length, digit);
      for (const std::string& text :
           {run, run + ":00", "0:00:00." + run, "000000." + run, "1:00:" + run, run + "/1/2000",
            "1/" + run + "/2000", "1/1/" + run, run + " Q 2000", run + " WK 2000", "2000-" + run,
            "-" + run, run + " 1:00", "1-JAN-2000 0:00:00." + run, "2000-1-1 00:00:00." + run}) {
        for (const int code : kCodes) {
          expect_sound(edges_, text, code, '.', read_in_place(edges_.at_end(text), code));
        }
      }
    }
  }
}

TEST_F(DateTexts, EightThreadsReadTheValuesOfOne) {
  set_decimal('.');
  constexpr std::string_view kTexts[] = {
      "1-JAN-2000", "01012000",   "12:30:15.25", "123015.25", "1-JAN-2000 12:30", "31.12.9999",
      "2001366",    "FEB 2000",   "4 Q 2000",    "53 WK 01",  "Tuesday",          "IX",
      "5 12:30",    "2000/12/31", "bad",         "1--2",      "20001231T1230",    ""};
  const auto read_all = [&] {
    std::vector<Reading> all;
    for (int round = 0; round < 200; ++round) {
      for (const std::string_view text : kTexts) {
        for (const int code : kCodes) all.push_back(read_in_place(text, code));
      }
    }
    return all;
  };
  const std::vector<Reading> expected = read_all();
  std::array<std::vector<Reading>, 8> results;
  {
    std::vector<std::jthread> threads;
    for (std::vector<Reading>& result : results) {
      threads.emplace_back([&result, &read_all] { result = read_all(); });
    }
  }
  for (const std::vector<Reading>& result : results) EXPECT_TRUE(result == expected);
}

}  // namespace
