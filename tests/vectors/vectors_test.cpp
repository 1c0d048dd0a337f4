// Runs the vectors: every row of the given files, through every door, in guarded fields. It uses
// the installed interface and no test framework, so that it is built and run on any machine as it
// is.
//
// Usage: vectors_test [--every-status] [--rounding up|down|zero] [--flush] [--may-differ] FILE...
//   --every-status  fails, too, when a status of <iocv/status.h> was not answered by any row
//   --rounding      the caller's thread rounds another way
//   --flush         the caller's thread flushes subnormal numbers to zero (x86 only)
//   --may-differ    rows that come out otherwise are counted, no failures; a byte changed outside a
//                   field, or a floating-point environment left other than it was found, still is
//                   one
#include "doors.h"
#include "rows.h"

#include <iocv/iocv.h>
#include <iocv/platform.h>

#include <cfenv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <set>

#include "support/guarded.h"

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

namespace {

#ifdef __SSE2__
constexpr unsigned kFlush = 0x8040;  // MXCSR: results and operands
#endif

using vectors::ReadDoor;
using vectors::Row;
using vectors::Setting;
using vectors::WriteDoor;

constexpr int kUnset = -999;  // what a status holds before a call

// Statuses that the doors always replace: 1115 by the reader's own, 1197 (the date of a DATETIME)
// by 1139. The date reader itself, which a caller may use too, tells 1197.
constexpr int kTooWide = 1115;
constexpr int kDateOfDatetime = 1197;

struct Surroundings {
  int rounding = FE_TONEAREST;
  bool flush = false;
  bool may_differ = false;
};

// The caller's floating-point environment around one call.
class Caller {
 public:
  explicit Caller(const Surroundings& surroundings) : surroundings_(surroundings) {
    std::fesetround(surroundings_.rounding);
#ifdef __SSE2__
    if (surroundings_.flush) _mm_setcsr(_mm_getcsr() | kFlush);
#endif
  }
  // Back to the usual environment; false when the call left another one than it found.
  bool leave() {
    bool same = std::fegetround() == surroundings_.rounding;
#ifdef __SSE2__
    same = same && ((_mm_getcsr() & kFlush) != 0) == surroundings_.flush;
    _mm_setcsr(_mm_getcsr() & ~kFlush);
#endif
    std::fesetround(FE_TONEAREST);
    return same;
  }

 private:
  Surroundings surroundings_;
};

class Runner {
 public:
  explicit Runner(const Surroundings& surroundings) : surroundings_(surroundings) {}

  void run_file(const char* name) {
    std::ifstream file(name);
    if (!file) throw std::runtime_error("cannot be read");
    apply({});
    std::string line;
    for (line_ = 1; std::getline(file, line); ++line_) {
      place_ = std::string(name) + ":" + std::to_string(line_);
      const auto parsed = vectors::parse(line);
      if (parsed.kind == vectors::Line::Kind::settings) skipping_ = !apply(parsed.settings);
      if (parsed.kind != vectors::Line::Kind::row) continue;
      if (skipping_) {
        ++skipped_;
      } else {
        run_row(parsed.row);
      }
    }
    apply({});
  }

  void require_every_status() {
#define IOCV_ROW(number, name, sentence) require_status(number);
    IOCV_STATUS_TABLE(IOCV_ROW)
#undef IOCV_ROW
  }

  [[nodiscard]] int failures() const { return failures_; }
  [[nodiscard]] std::string place() const { return place_; }

  int report() const {
    std::printf("%d rows through %d doors and edges: %d failures", rows_, calls_, failures_);
    if (surroundings_.may_differ) std::printf(", %d rows differ", differing_);
    if (skipped_ > 0) std::printf(", %d SKIPPED for want of a locale or code page", skipped_);
    std::printf("\n");
    return failures_ > 0 || rows_ == 0 ? 1 : 0;
  }

 private:
  // False when this machine lacks the locale or code page that the rows need.
  bool apply(const std::vector<Setting>& settings) {
    static const std::string environment = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, environment.c_str());
    iocvsetdecchardot_();
    cmnglb_.system_missing = cmnmch_.lowest_finite;
    cmnglb_.blank_value = cmnmch_.lowest_finite;
    cmnsys_.leading_zero = 0;
    cmasys_.system_missing = '.';
    cmndtm_.century_begin = 1900;
    cmnobog_.small = 0.0001;
    VELTMBsetCodePage("UTF-8");
    for (int currency = 0; currency < 5; ++currency) set_currency(currency, "");
    for (const Setting& setting : settings) {
      if (!apply_one(setting)) return false;
    }
    return true;
  }

  static void set_currency(int index, std::string pattern) {
    IocvSetCCFormat(index, pattern.data());
  }

  static bool apply_one(const Setting& setting) {
    const std::string& value = setting.value;
    if (setting.name == "decimal") {
      value == "," ? iocvsetdeccharcomma_() : iocvsetdecchardot_();
    } else if (setting.name == "leading_zero") {
      cmnsys_.leading_zero = std::strtol(value.c_str(), nullptr, 10);
    } else if (setting.name == "missing_character") {
      cmasys_.system_missing = value.at(0);
    } else if (setting.name == "missing_number") {
      cmnglb_.system_missing = vectors::number_of(value);
    } else if (setting.name == "blank_value") {
      cmnglb_.blank_value = vectors::number_of(value);
    } else if (setting.name == "begin_year") {
      cmndtm_.century_begin = std::strtol(value.c_str(), nullptr, 10);
    } else if (setting.name == "small") {
      cmnobog_.small = vectors::number_of(value);
    } else if (setting.name == "code_page") {
      return VELTMBsetCodePage(value.c_str());
    } else if (setting.name == "locale") {
      return std::setlocale(LC_NUMERIC, value.c_str()) != nullptr;
    } else if (setting.name.size() == 3 && setting.name.starts_with("cc")) {
      set_currency(setting.name[2] - 'a', value);
    } else {
      throw std::runtime_error("no setting " + setting.name);
    }
    return true;
  }

  void run_row(const Row& row) {
    ++rows_;
    bool same = true;
    for (const test::Edge edge : {test::Edge::end, test::Edge::begin}) {
      if (row.reads) {
        for (const ReadDoor& door : vectors::kReadDoors) same = read(row, door, edge) && same;
      } else {
        for (const WriteDoor& door : vectors::kWriteDoors) same = write(row, door, edge) && same;
      }
    }
    if (!same) ++differing_;
  }

  bool read(const Row& row, const ReadDoor& door, test::Edge edge) {
    if (!door.serves(row)) return true;
    const test::Guarded text(row.field, edge);
    const std::size_t units =
        std::max<std::size_t>((static_cast<std::size_t>(row.width) + 7) / 8, 1);
    const test::Guarded value(row.is_string() ? units * 8 : 8);
    std::int64_t status = kUnset;
    Caller caller(surroundings_);
    door.read(row, text.data(), reinterpret_cast<OBS*>(value.data()), &status);
    const bool left = caller.leave();
    return judge(row, door.name, left, text.intact() && value.intact() && text.text() == row.field,
                 value.text(), expected(row.value, value.size()), status);
  }

  bool write(const Row& row, const WriteDoor& door, test::Edge edge) {
    if (!door.serves(row)) return true;
    const std::string stored = row.value.value();
    const test::Guarded value(stored + std::string((8 - stored.size() % 8) % 8, ' '));
    const test::Guarded field(static_cast<std::size_t>(row.width), edge);
    std::int64_t status = kUnset;
    Caller caller(surroundings_);
    door.write(row, reinterpret_cast<const OBS*>(value.data()), field.data(), &status);
    const bool left = caller.leave();
    const std::optional<std::string> shown =
        row.field_untouched ? std::nullopt : std::optional(row.field);
    return judge(row, door.name, left, field.intact() && value.intact(), field.text(),
                 expected(shown, field.size()), status);
  }

  // The expected bytes, followed by what was there before the call.
  static std::string expected(const std::optional<std::string>& bytes, std::size_t size) {
    std::string all = bytes.value_or("");
    if (all.size() < size) all.append(size - all.size(), test::Guarded::kSentinel);
    return all;
  }

  bool judge(const Row& row, const char* door, bool left, bool intact, const std::string& got,
             const std::string& want, std::int64_t status) {
    ++calls_;
    answered_.insert(status);
    if (!left) fail(std::string(door) + " left another floating-point environment");
    if (!intact) fail(std::string(door) + " touched bytes that it does not own");
    const bool same = got == want && status == row.status;
    if (!same && !surroundings_.may_differ) {
      const auto told = [&](const std::string& bytes) {
        return row.reads && !row.is_string() ? vectors::described(bytes) : test::shown(bytes);
      };
      fail(std::string(door) + "\n  want |" + told(want) + "| " + std::to_string(row.status) +
           "\n  got  |" + told(got) + "| " + std::to_string(status));
    }
    return same;
  }

  void require_status(int number) {
    const bool replaced = number == kTooWide || number == kDateOfDatetime;
    if (answered_.contains(number) == replaced) {
      fail("status " + std::to_string(number) +
           (replaced ? " reached a caller" : " was not answered by any row"));
    }
    if (number == kDateOfDatetime && date_of_datetime() != number) {
      fail("obidat_ does not answer 1197");
    }
  }

  static std::int64_t date_of_datetime() {
    const std::string text = "0101200x";
    const auto width = static_cast<std::int64_t>(text.size());
    const std::int64_t trailing = -1;
    const std::int32_t type = 22;
    double value = 0;
    std::int64_t status = kUnset;
    std::int64_t position = 1;
    obidat_(text.data(), &width, &trailing, &value, &type, &status, &position, width);
    return status;
  }

  void fail(const std::string& what) {
    ++failures_;
    std::printf("%s: %s\n", place_.c_str(), what.c_str());
  }

  Surroundings surroundings_;
  std::string place_;
  int line_ = 0;
  int rows_ = 0;
  int calls_ = 0;
  int failures_ = 0;
  int differing_ = 0;
  int skipped_ = 0;
  bool skipping_ = false;
  std::set<std::int64_t> answered_;
};

int rounding_named(const std::string& name) {
  if (name == "up") return FE_UPWARD;
  if (name == "down") return FE_DOWNWARD;
  if (name == "zero") return FE_TOWARDZERO;
  throw std::runtime_error("no rounding " + name);
}

}  // namespace

int main(int argc, char** argv) {
  Surroundings surroundings;
  bool every_status = false;
  std::vector<const char*> files;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--every-status") {
      every_status = true;
    } else if (word == "--flush") {
      surroundings.flush = true;
    } else if (word == "--may-differ") {
      surroundings.may_differ = true;
    } else if (word == "--rounding" && i + 1 < argc) {
      surroundings.rounding = rounding_named(argv[++i]);
    } else {
      files.push_back(argv[i]);
    }
  }
  Runner runner(surroundings);
  try {
    for (const char* file : files) runner.run_file(file);
  } catch (const std::exception& error) {
    std::printf("%s: %s\n", runner.place().c_str(), error.what());
    return 2;
  }
  if (every_status) runner.require_every_status();
  return runner.report();
}
