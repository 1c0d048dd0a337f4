// Text to values: for each format type a loop of its own around the reader.
#include "column/column_settings.h"
#include "column/prepared.h"
#include "column/tally.h"
#include "frame/leaf.h"
#include "frame/reader_steps.h"
#include "host/elapsed.h"

namespace iocv::column {
namespace {

iocv::Read<double> read_as_f(std::string_view field, std::int64_t decimals,
                             const iocv::Settings& settings) noexcept {
  return read_number(field, decimals, FormatCode::f, settings);
}

// Beside the types of the dispatcher those that other doors read.
// clang-format off
using Readers = ReaderRows::With<
    Row<FormatCode::cca, read_as_f>,
    Row<FormatCode::ccb, read_as_f>,
    Row<FormatCode::ccc, read_as_f>,
    Row<FormatCode::ccd, read_as_f>,
    Row<FormatCode::cce, read_as_f>,
    Row<FormatCode::elapsed, read_elapsed_field>>;
// clang-format on

struct Fields {
  const char* first;
  std::size_t stride;
  std::size_t count;
  std::size_t width;

  [[nodiscard]] std::string_view operator[](std::size_t i) const noexcept {
    return {first + i * stride, width};
  }
};

using NumberLoop = Result(Fields fields, std::int64_t decimals, const iocv::Settings& settings,
                          double* values, std::int32_t* statuses) noexcept;
using StringLoop = Result(Fields fields, char* values, std::size_t value_stride,
                          std::int32_t* statuses) noexcept;

template <FormatCode Code, auto Plain, class... Attempts>
Result number_loop(Fields fields, std::int64_t decimals, const iocv::Settings& settings,
                   double* values, std::int32_t* statuses) noexcept {
  const auto loop = [&](const auto&... attempts) {
    Tally tally(statuses, fields.count);
    for (std::size_t i = 0; i < fields.count; ++i) {
      Read<double> read;
      if ((attempts.reads(fields[i].data(), read) || ...)) {
        values[i] = read.value;
        tally.add(i, read.status);
      } else {
        const auto result = call_reader<Plain>(fields[i], decimals, Code, settings);
        values[i] = result.value;
        tally.add(i, result.status);
      }
    }
    return tally.result();
  };
  return loop(Prepared<Attempts>(fields.width, decimals, settings)...);
}

// An attempt that a loop makes after others, and out of line, as it has its registers for the
// first.
template <class Attempt>
struct Later : Attempt {
  static bool make(std::int64_t width, std::int64_t decimals, const iocv::Settings& settings,
                   Later& later) noexcept {
    return Attempt::make(width, decimals, settings, later);
  }

  [[gnu::noinline]] bool operator()(const char* field, Read<double>& result) const noexcept {
    return answers<Attempt>(*this, field, result);
  }
};

template <FormatCode Code, auto Plain>
constexpr NumberLoop* in_steps(Steps<Plain>) {
  return number_loop<Code, Plain>;
}
template <FormatCode Code, auto Plain, class First, class... More>
constexpr NumberLoop* in_steps(Steps<Plain, First, More...>) {
  return number_loop<Code, Plain, First, Later<More>...>;
}

template <auto Core>
Result string_loop(Fields fields, char* values, std::size_t value_stride,
                   std::int32_t* statuses) noexcept {
  Tally tally(statuses, fields.count);
  for (std::size_t i = 0; i < fields.count; ++i) {
    tally.add(i, Core(fields[i], values + i * value_stride));
  }
  return tally.result();
}

template <FormatCode Code, auto Core>
constexpr NumberLoop* number_loop_of(Row<Code, Core> row) {
  if constexpr (kReadsString<Core>) {
    return nullptr;
  } else {
    return in_steps<Code>(reader_steps(row));
  }
}

template <FormatCode Code, auto Core>
constexpr StringLoop* string_loop_of(Row<Code, Core>) {
  if constexpr (kReadsString<Core>) {
    return string_loop<Core>;
  } else {
    return nullptr;
  }
}

constexpr CodeTable<NumberLoop> kNumberLoops =
    Readers::by_code<NumberLoop>([](auto row) { return number_loop_of(row); });
constexpr CodeTable<StringLoop> kStringLoops =
    Readers::by_code<StringLoop>([](auto row) { return string_loop_of(row); });

}  // namespace

Result read(const char* fields, std::size_t stride, std::size_t count, const Format& format,
            const Settings& settings, double* values, std::int32_t* statuses) noexcept {
  NumberLoop* const loop = entry_of(kNumberLoops, format.type);
  if (!loop) return refuse_all(count, statuses);
  return loop({fields, stride, count, used_width(format)}, format.decimals,
              core_settings(settings, format), values, statuses);
}

Result read_strings(const char* fields, std::size_t stride, std::size_t count, const Format& format,
                    const Settings&, char* values, std::size_t value_stride,
                    std::int32_t* statuses) noexcept {
  StringLoop* const loop = entry_of(kStringLoops, format.type);
  if (!loop) return refuse_all(count, statuses);
  return loop({fields, stride, count, used_width(format)}, values, value_stride, statuses);
}

}  // namespace iocv::column
