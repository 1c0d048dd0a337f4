// Values to text: for each format type a loop of its own around the writer.
#include "column/column_settings.h"
#include "column/prepared.h"
#include "column/tally.h"
#include "frame/leaf.h"
#include "frame/writer_steps.h"
#include "host/elapsed.h"

namespace iocv::column {
namespace {

// Beside the types of the dispatcher the one that the extension hook writes by itself.
using Writers = WriterRows::With<Row<FormatCode::elapsed, write_elapsed_field>>;

struct Fields {
  char* first;
  std::size_t stride;
  std::size_t count;
  std::size_t width;

  [[nodiscard]] Field operator[](std::size_t i) const noexcept {
    return {first + i * stride, static_cast<std::int64_t>(width)};
  }
};

using NumberLoop = Result(const double* values, std::int64_t decimals,
                          const iocv::Settings& settings, Fields fields,
                          std::int32_t* statuses) noexcept;
using StringLoop = Result(const char* values, std::size_t value_stride, Fields fields,
                          std::int32_t* statuses) noexcept;

// Never made part of a loop, where it would take registers from the attempts.
template <FormatCode Code, auto Plain>
[[gnu::noinline]] Status write_plainly(Field out, double value, std::int64_t decimals,
                                       const iocv::Settings& settings) noexcept {
  return call_writer<Plain>(out, value, decimals, Code, settings);
}

template <FormatCode Code, auto Plain, class... Attempts>
Result number_loop(const double* values, std::int64_t decimals, const iocv::Settings& settings,
                   Fields fields, std::int32_t* statuses) noexcept {
  const auto loop = [&](const auto&... attempts) {
    Tally tally(statuses, fields.count);
    for (std::size_t i = 0; i < fields.count; ++i) {
      const bool written = (attempts(fields[i].data(), values[i]) || ...);
      tally.add(i, written ? Status::ok
                           : write_plainly<Code, Plain>(fields[i], values[i], decimals, settings));
    }
    return tally.result();
  };
  return loop(Prepared<Attempts>(fields.width, decimals, GivenSettings(settings))...);
}

template <FormatCode Code, auto Plain, class... Attempts>
constexpr NumberLoop* in_steps(Steps<Plain, Attempts...>) {
  return number_loop<Code, Plain, Attempts...>;
}

template <auto Core>
Result string_loop(const char* values, std::size_t value_stride, Fields fields,
                   std::int32_t* statuses) noexcept {
  Tally tally(statuses, fields.count);
  for (std::size_t i = 0; i < fields.count; ++i) {
    Core(fields[i], values + i * value_stride);
    tally.add(i, Status::ok);
  }
  return tally.result();
}

template <class Row>
constexpr NumberLoop* number_loop_of(Row row) {
  if constexpr (kWritesString<Row::core>) {
    return nullptr;
  } else {
    return in_steps<Row::code>(writer_steps(row));
  }
}

template <FormatCode Code, auto Core>
constexpr StringLoop* string_loop_of(Row<Code, Core>) {
  if constexpr (kWritesString<Core>) {
    return string_loop<Core>;
  } else {
    return nullptr;
  }
}

constexpr CodeTable<NumberLoop> kNumberLoops =
    Writers::by_code<NumberLoop>([](auto row) { return number_loop_of(row); });
constexpr CodeTable<StringLoop> kStringLoops =
    Writers::by_code<StringLoop>([](auto row) { return string_loop_of(row); });

}  // namespace

Result write(const double* values, std::size_t count, const Format& format,
             const Settings& settings, char* fields, std::size_t stride,
             std::int32_t* statuses) noexcept {
  if (entry_of(kStringLoops, format.type)) return refuse_all(count, statuses);
  NumberLoop* loop = entry_of(kNumberLoops, format.type);
  if (!loop) loop = number_loop<FormatCode{}, write_unconverted>;
  return loop(values, format.decimals, core_settings(settings, format),
              {fields, stride, count, used_width(format)}, statuses);
}

Result write_strings(const char* values, std::size_t value_stride, std::size_t count,
                     const Format& format, const Settings&, char* fields, std::size_t stride,
                     std::int32_t* statuses) noexcept {
  StringLoop* const loop = entry_of(kStringLoops, format.type);
  if (!loop) return refuse_all(count, statuses);
  return loop(values, value_stride, {fields, stride, count, used_width(format)}, statuses);
}

}  // namespace iocv::column
