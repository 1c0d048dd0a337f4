// Every field of a column is what a conversion of its own makes of it.
#include <iocv/iocv.h>

#include <bit>
#include <clocale>

#include "column/column_support.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::Edge;
using test::Format;
using test::Guarded;
using test::Result;
using test::Settings;

constexpr std::size_t kCount = 24;
constexpr double kBefore = 12345.678;  // what a value holds that nobody reads
constexpr char kGap = '~';

// The widths of the table and beyond, and what no field has.
std::vector<std::int64_t> all_widths() {
  std::vector<std::int64_t> widths = {-1, 41, 64, 255, 1000};
  for (std::int64_t width = 0; width <= 40; ++width) widths.push_back(width);
  return widths;
}

std::int64_t any_decimals(std::mt19937_64& random) {
  constexpr std::int64_t kDecimals[] = {0,
                                        0,
                                        1,
                                        2,
                                        2,
                                        3,
                                        5,
                                        16,
                                        40,
                                        -1,
                                        std::numeric_limits<std::int64_t>::min(),
                                        std::numeric_limits<std::int64_t>::max()};
  return kDecimals[random() % std::size(kDecimals)];
}

std::string shown(const Format& format) {
  return "type " + std::to_string(format.type) + ", width " + std::to_string(format.width) +
         ", decimals " + std::to_string(format.decimals);
}

// Fields, or string values, that lie apart in a buffer between unmapped pages.
class Parts {
 public:
  Parts(std::size_t size, std::size_t gap, Edge edge)
      : size_(size),
        stride_(size + gap),
        buffer_(std::string((kCount - 1) * stride_ + size, kGap), edge) {}

  [[nodiscard]] char* data() const { return buffer_.data(); }
  [[nodiscard]] std::size_t stride() const { return stride_; }
  [[nodiscard]] std::string operator[](std::size_t i) const {
    return {data() + i * stride_, size_};
  }
  void set(std::size_t i, const std::string& text) const { text.copy(data() + i * stride_, size_); }
  // True while no byte changed but those of the parts.
  [[nodiscard]] bool intact() const {
    for (std::size_t i = 0; i + 1 < kCount; ++i) {
      const char* gap = data() + i * stride_ + size_;
      if (std::string(gap, stride_ - size_) != std::string(stride_ - size_, kGap)) return false;
    }
    return buffer_.intact();
  }

 private:
  std::size_t size_;
  std::size_t stride_;
  Guarded buffer_;
};

// Statuses of a column beside those of single conversions.
class Statuses {
 public:
  explicit Statuses(Edge edge) : buffer_(kCount * sizeof(std::int32_t), edge) {}

  [[nodiscard]] std::int32_t* data() const {
    return reinterpret_cast<std::int32_t*>(buffer_.data());
  }
  void expect(std::size_t i, std::int64_t status) {
    EXPECT_EQ(data()[i], status) << "field " << i;
    if (status != 0 && expected_.failed++ == 0) expected_.first_failed = i;
  }
  void expect_result(const Result& result) const {
    EXPECT_EQ(result, expected_);
    EXPECT_TRUE(buffer_.intact());
  }

 private:
  Guarded buffer_;
  Result expected_ = {.failed = 0, .first_failed = kCount};
};

std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

// The process's settings tell what single conversions do, while the column has its own.
class Columns {
 public:
  Columns(const Settings& settings, std::mt19937_64& random)
      : settings_(settings), random_(random) {}

  void compare(const Format& format, Edge edge) {
    SCOPED_TRACE(shown(format));
    const auto width = static_cast<std::size_t>(std::max<std::int64_t>(format.width, 0));
    const Parts fields(width, random_() % 4, edge);
    if (test::is_string(format.type)) {
      read_strings(format, fields, edge);
      write_strings(format, fields, edge);
    } else {
      read(format, fields, edge);
      write(format, fields, edge);
    }
  }

 private:
  void read(const Format& format, const Parts& fields, Edge edge) {
    const Guarded buffer(kCount * sizeof(double), edge);
    auto* const values = reinterpret_cast<double*>(buffer.data());
    for (std::size_t i = 0; i < kCount; ++i) {
      fields.set(i, test::sample_field(format, random_));
      values[i] = kBefore;
    }
    Statuses statuses(edge);
    const Result result = iocv::column::read(fields.data(), fields.stride(), kCount, format,
                                             settings_, values, statuses.data());
    for (std::size_t i = 0; i < kCount; ++i) {
      const auto [value, status] = test::read_alone(fields[i], format, kBefore);
      EXPECT_EQ(bits(values[i]), bits(value)) << test::shown(fields[i]);
      statuses.expect(i, status);
    }
    statuses.expect_result(result);
    EXPECT_TRUE(fields.intact() && buffer.intact());
  }

  void write(const Format& format, const Parts& fields, Edge edge) {
    const Guarded buffer(kCount * sizeof(double), edge);
    auto* const values = reinterpret_cast<double*>(buffer.data());
    std::vector<std::string> before;
    for (std::size_t i = 0; i < kCount; ++i) {
      values[i] = test::sample_value(format.type, random_);
      before.push_back(fields[i]);  // texts, so that an untouched field shows
    }
    Statuses statuses(edge);
    const Result result = iocv::column::write(values, kCount, format, settings_, fields.data(),
                                              fields.stride(), statuses.data());
    for (std::size_t i = 0; i < kCount; ++i) {
      const auto [field, status] = test::write_alone(values[i], format, before[i]);
      EXPECT_EQ(test::shown(fields[i]), test::shown(field)) << test::described(values[i]);
      statuses.expect(i, status);
    }
    statuses.expect_result(result);
    EXPECT_TRUE(fields.intact() && buffer.intact());
  }

  void read_strings(const Format& format, const Parts& fields, Edge edge) {
    const std::size_t size = iocv::column::string_value_size(format);
    const Parts values(size, random_() % 4, edge);
    const std::string before(size, '?');
    for (std::size_t i = 0; i < kCount; ++i) {
      fields.set(i, test::sample_field(format, random_));
      values.set(i, before);
    }
    Statuses statuses(edge);
    const Result result =
        iocv::column::read_strings(fields.data(), fields.stride(), kCount, format, settings_,
                                   values.data(), values.stride(), statuses.data());
    for (std::size_t i = 0; i < kCount; ++i) {
      const auto [bytes, status] = test::read_alone(fields[i], format, before);
      EXPECT_EQ(test::shown(values[i]), test::shown(bytes)) << test::shown(fields[i]);
      statuses.expect(i, status);
    }
    statuses.expect_result(result);
    EXPECT_TRUE(fields.intact() && values.intact());
  }

  void write_strings(const Format& format, const Parts& fields, Edge edge) {
    const std::size_t size = iocv::column::string_value_size(format);
    const Parts values(size, random_() % 4, edge);
    std::vector<std::string> before;
    for (std::size_t i = 0; i < kCount; ++i) {
      values.set(i, test::sample_string(size, random_));
      before.push_back(fields[i]);
    }
    Statuses statuses(edge);
    const Result result =
        iocv::column::write_strings(values.data(), values.stride(), kCount, format, settings_,
                                    fields.data(), fields.stride(), statuses.data());
    for (std::size_t i = 0; i < kCount; ++i) {
      const auto [field, status] = test::write_alone(values[i], format, before[i]);
      EXPECT_EQ(test::shown(fields[i]), test::shown(field)) << test::shown(values[i]);
      statuses.expect(i, status);
    }
    statuses.expect_result(result);
    EXPECT_TRUE(fields.intact() && values.intact());
  }

  const Settings& settings_;
  std::mt19937_64& random_;
};

class ColumnEquality : public testing::TestWithParam<int> {
 protected:
  ~ColumnEquality() override { currencyFormat::Restore(kSlot); }

  void compare_all(const Settings& settings) {
    SCOPED_TRACE(test::seed_text());
    std::mt19937_64 random = test::random_source();
    Columns columns(settings, random);
    for (const std::int64_t width : all_widths()) {
      for (const Edge edge : {Edge::end, Edge::begin}) {
        columns.compare({GetParam(), width, any_decimals(random)}, edge);
        if (HasFailure()) return;
      }
    }
    columns.compare({GetParam(), 32767, 2}, Edge::end);
  }

 private:
  static constexpr int kSlot = 4;
  [[maybe_unused]] const bool saved_ = currencyFormat::Save(kSlot);
  test::RecordsGuard records_;
};

TEST_P(ColumnEquality, UnderTheInitialSettings) {
  iocvsetdecchardot_();
  std::setlocale(LC_NUMERIC, "C");
  compare_all(Settings());
}

TEST_P(ColumnEquality, UnderTheProcessesSettings) {
  test::change_process_settings();
  compare_all(Settings::current());
}

INSTANTIATE_TEST_SUITE_P(Types, ColumnEquality, testing::ValuesIn(test::all_types()),
                         [](const auto& type) {
                           return type.param < 0 ? "minus" + std::to_string(-(type.param + 1))
                                                 : std::to_string(type.param);
                         });

}  // namespace
