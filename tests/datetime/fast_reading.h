// Texts of dates, times and periods, read by the fast ways and by the plain ones: the same bits of
// the value and the same status, with the field flush with a page that must not be read.
#pragma once

#include <iocv/iocv.h>

#include <bit>
#include <memory>

#include "datetime/obidat.h"
#include "datetime/obidtm.h"
#include "datetime/obidtt.h"
#include "datetime/obijdt.h"
#include "datetime/obimon.h"
#include "datetime/obiqyr.h"
#include "datetime/obitim.h"
#include "datetime/obiwky.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test::fast_reading {

using iocv::ReadLeaf;
using Format = VELT_Format;

inline constexpr ReadLeaf* kPlainDate = iocv::read_leaf<iocv::read_date_plain>;

inline constexpr ReadLeaf* kPlainDatetime = iocv::read_leaf<iocv::read_datetime_plain>;

inline constexpr int kYearFirst = 86;

// A pattern shows day, month, month's letters and year as dd, mm, MMM and yyyy, and hours, minutes
// and seconds as HH, NN and SS.
struct Way {
  int type;
  ReadLeaf* plain;
  std::string_view pattern;
};

inline constexpr Way kWays[] = {
    {Format::DATE, kPlainDate, "dd-MMM-yyyy"},
    {Format::ADATE, kPlainDate, "mm/dd/yyyy"},
    {Format::EDATE, kPlainDate, "dd.mm.yyyy"},
    {Format::SDATE, kPlainDate, "yyyy/mm/dd"},
    {Format::DATETIME, kPlainDatetime, "dd-MMM-yyyy HH:NN:SS"},
    {Format::TIME, iocv::read_leaf<iocv::read_time_plain>, "HH:NN:SS"},
    {kYearFirst, kPlainDatetime, "yyyy-mm-dd HH:NN:SS"},
};

// Each with a text that its fast way reads.
inline constexpr Way kPeriods[] = {
    {Format::JDATE, iocv::read_leaf<iocv::read_jdate_plain>, "2024366"},
    {Format::MONTH, iocv::read_leaf<iocv::read_month_plain>, "SEPTEMBER"},
    {Format::MOYR, iocv::read_leaf<iocv::read_moyr_plain>, "FEB 2024"},
    {Format::QYR, iocv::read_leaf<iocv::read_qyr_plain>, "4 Q 2024"},
    {Format::WKYR, iocv::read_leaf<iocv::read_wkyr_plain>, "53 WK 2024"},
    {Format::DTIME, iocv::read_leaf<iocv::read_dtime_plain>, "12 23:59:59.5"},
};

struct Reading {
  std::uint64_t bits;
  std::int64_t status;
  bool operator==(const Reading&) const = default;
};

inline Reading read_by(ReadLeaf* leaf, int type, const char* text, std::int64_t width) {
  OBS value = {.number = 4711};
  std::int64_t status = -1;
  const std::int64_t decimals = 0;
  const std::int32_t code = type;
  leaf(text, &code, &width, &decimals, &value, &status);
  return {std::bit_cast<std::uint64_t>(value.number), status};
}

inline void dispatched(const char* text, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  obicv_(text, type, width, decimals, value, status, *width);
}

// A field at either edge of its pages.
class Fields {
 public:
  explicit Fields(std::size_t width) : end_(width), begin_(width, test::Edge::begin) {}

  void expect_same(const Way& way, std::string_view text) {
    for (const test::Guarded* field : {&end_, &begin_}) {
      std::memcpy(field->data(), text.data(), text.size());
      const auto width = static_cast<std::int64_t>(text.size());
      const Reading fast = read_by(dispatched, way.type, field->data(), width);
      const Reading plain = read_by(way.plain, way.type, field->data(), width);
      if (fast != plain) {
        FAIL() << "type " << way.type << " |" << test::shown(text)
               << "|: " << test::described(std::bit_cast<double>(fast.bits)) << ' ' << fast.status
               << ", plain " << test::described(std::bit_cast<double>(plain.bits)) << ' '
               << plain.status;
      }
    }
  }

 private:
  test::Guarded end_;
  test::Guarded begin_;
};

struct Parts {
  unsigned day;
  unsigned month;
  unsigned year;
  unsigned second_of_day = 0;  // up to 100 hours
};

inline std::string composed(std::string_view pattern, Parts parts) {
  static constexpr std::string_view kNames = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
  std::string text(pattern);
  const auto put = [&](char letter, unsigned number) {
    for (std::size_t at = text.size(); at-- > 0;) {
      if (pattern[at] != letter) continue;
      text[at] = static_cast<char>('0' + number % 10);
      number /= 10;
    }
  };
  put('d', parts.day);
  put('m', parts.month);
  put('y', parts.year);
  put('H', parts.second_of_day / 3600);
  put('N', parts.second_of_day / 60 % 60);
  put('S', parts.second_of_day % 60);
  const std::size_t name = text.find("MMM");
  if (name != std::string::npos)
    text.replace(name, 3, kNames.substr((parts.month - 1) % 12 * 3, 3));
  return text;
}

// The text as people write it: other delimiters, other case, a blank or a stray byte.
inline std::string disturbed(std::string text, std::mt19937_64& random) {
  static constexpr std::string_view kBytes = "-./ :,0123456789JANFEBjanfebT'@`\x80\xFF";
  for (std::uint64_t changes = random() % 4; changes > 0; --changes) {
    char& c = text[random() % text.size()];
    switch (random() % 4) {
      case 0: c = kBytes[random() % kBytes.size()]; break;
      case 1: c = static_cast<char>(random()); break;
      case 2: c = static_cast<char>(c ^ 1 << random() % 8); break;
      default: c = static_cast<char>(c ^ 0x20); break;
    }
  }
  return text;
}

template <std::size_t kCount>
std::string one_of(const std::string_view (&texts)[kCount], std::mt19937_64& random) {
  return std::string(texts[random() % kCount]);
}

inline std::string in_some_case(std::string text, std::mt19937_64& random) {
  const std::uint64_t lower = random() % 3 == 0 ? random() : 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (lower >> i % 64 & 1) text[i] = static_cast<char>(text[i] | 0x20);
  }
  return text;
}

inline std::string some_number(unsigned number, std::size_t digits) {
  std::string text = std::to_string(number);
  return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

inline std::string some_day(std::mt19937_64& random) {
  return some_number(static_cast<unsigned>(random() % 33), random() % 8 == 0 ? 3 : random() % 3);
}

inline std::string some_month(std::mt19937_64& random) {
  static constexpr std::string_view kNames[] = {
      "JAN",       "FEB",         "FEB",   "MAR", "APR", "MAY", "JUN",     "JUL",
      "AUG",       "SEP",         "OCT",   "NOV", "DEC", "XII", "JANUARY", "FEBRUARY",
      "SEPTEMBER", "DEC\xC4\xB1", "MAYBE", "MA",  "III", "JA@", "J"};
  if (random() % 2 == 0) {
    return some_number(static_cast<unsigned>(random() % 14), random() % 8 == 0 ? 3 : random() % 3);
  }
  return in_some_case(one_of(kNames, random), random);
}

inline std::string some_year(std::mt19937_64& random) {
  switch (random() % 8) {
    case 0: return some_number(static_cast<unsigned>(random() % 12'000), 0);
    case 1: return some_number(static_cast<unsigned>(random() % 100), random() % 5);
    case 2:
    case 3: return some_number(static_cast<unsigned>(random() % 100), 2);
    case 4: return some_number(static_cast<unsigned>(1581 + random() % 4), 0);
    default: return some_number(static_cast<unsigned>(1890 + random() % 220), 0);
  }
}

inline std::string some_blanks(std::mt19937_64& random) {
  const std::uint64_t kind = random() % 16;
  return std::string(kind < 10 ? 0 : kind < 15 ? kind - 9 : random() % 20, ' ');
}

inline std::string some_delimiter(std::mt19937_64& random) {
  static constexpr std::string_view kDelimiters[] = {"-",   "-",  "/",  "/",  ".", ",", " ", "  ",
                                                     " - ", ". ", " ,", "--", "",  ":", "+", "T"};
  return one_of(kDelimiters, random);
}

// A date as people write it, in the order of its format.
inline std::string some_date(int type, std::mt19937_64& random) {
  const std::string day = some_day(random);
  const std::string month = some_month(random);
  const std::string year = some_year(random);
  const std::string before = some_blanks(random);
  const std::string first = some_delimiter(random);
  const std::string second = random() % 4 == 0 ? some_delimiter(random) : first;
  const std::string behind = some_blanks(random);
  switch (type) {
    case Format::ADATE: return before + month + first + day + second + year + behind;
    case Format::SDATE:
    case kYearFirst: return before + year + first + month + second + day + behind;
    default: return before + day + first + month + second + year + behind;
  }
}

// A date without delimiters of its own, mostly.
inline std::string some_run(std::mt19937_64& random) {
  std::string text;
  const std::uint64_t kind = random() % 8;
  const std::size_t digits = kind < 5 ? 8 : kind < 6 ? 6 : random() % 12;
  for (std::size_t i = 0; i < digits; ++i) {
    text += static_cast<char>('0' + random() % (i % 2 == 0 ? 3 : 10));
  }
  static constexpr std::string_view kBehind[] = {"", "", "", " ", "  ", "-", "x", " 1", "T"};
  return std::string(random() % 3, ' ') + text + one_of(kBehind, random);
}

inline std::string some_time(std::mt19937_64& random) {
  static constexpr std::string_view kMarks[] = {":", ":", ":", ":", ":", ":", ":",
                                                ".", ",", " ", "",  "-", ": "};
  std::string text = some_blanks(random);
  if (random() % 16 == 0) text += "T";
  if (random() % 16 == 0) text += random() % 2 == 0 ? '-' : '+';
  text += some_number(static_cast<unsigned>(random() % 26), random() % 4);
  if (random() % 16 == 0) text += some_number(static_cast<unsigned>(random()), random() % 12);
  const std::string mark = one_of(kMarks, random);
  text += mark + some_number(static_cast<unsigned>(random() % 62), random() % 4);
  if (random() % 4 != 0) {
    text += mark + some_number(static_cast<unsigned>(random() % 62), random() % 4);
    if (random() % 2 == 0) {
      text += random() % 2 == 0 ? '.' : ',';
      text += some_number(static_cast<unsigned>(random() % 1'000'000), random() % 12);
    }
  }
  return text + some_blanks(random);
}

inline std::string some_period(int type, std::mt19937_64& random) {
  const std::string before = some_blanks(random);
  const std::string behind = some_blanks(random);
  const std::string between = random() % 3 == 0 ? some_delimiter(random) : some_blanks(random);
  const bool marked = random() % 8 != 0;
  const auto number = [&](unsigned end) {
    return some_number(static_cast<unsigned>(random() % end), random() % 4);
  };
  switch (type) {
    case Format::JDATE: {
      const std::string day =
          some_number(static_cast<unsigned>(random() % 370), random() % 8 ? 3 : 2);
      return before + some_year(random) + (random() % 4 ? "" : between) + day + behind;
    }
    case Format::MONTH: return before + some_month(random) + behind;
    case Format::MOYR:
      return before + some_month(random) + some_delimiter(random) + some_year(random) + behind;
    case Format::QYR:
      return before + number(6) + between + (marked ? "Q" : "q") + between + some_year(random) +
             behind;
    case Format::WKYR:
      return before + number(56) + between + (marked ? "WK" : "W") + between + some_year(random) +
             behind;
    default: {
      const std::string days = random() % 8 ? number(400) : std::to_string(random());
      return before + days + between + (random() % 8 ? some_time(random) : "");
    }
  }
}

// A field of each length.
class AllFields {
 public:
  void expect_same(const Way& way, std::string_view text) {
    while (fields_.size() <= text.size()) {
      fields_.push_back(std::make_unique<Fields>(fields_.size()));
    }
    fields_[text.size()]->expect_same(way, text);
  }

 private:
  std::vector<std::unique_ptr<Fields>> fields_;
};

}  // namespace test::fast_reading
