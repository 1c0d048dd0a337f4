// Columns of any bytes under any format equal the same conversions one by one.
#include <iocv/column.h>
#include <iocv/convert.h>

#include <algorithm>
#include <vector>

#include "harness.h"

namespace {

namespace column = iocv::column;

constexpr std::int32_t kYearFirst = 86;
constexpr std::uint64_t kBefore = 0x5A5A'5A5A'5A5A'5A5A;

struct Shape {
  std::int32_t code;
  std::int64_t width;
  std::int64_t decimals;
  std::size_t bytes;  // of a field: the width, or 0
  std::size_t stride;
  std::size_t count;
};

bool is_string(std::int32_t code) { return code == VELT_Format::A || code == VELT_Format::AHEX; }

bool is_currency(std::int32_t code) { return code >= VELT_Format::CCA && code <= VELT_Format::CCE; }

// How many failed and which was the first.
column::Result tally(const std::vector<std::int32_t>& statuses) {
  const auto failed = [](std::int32_t status) { return status != 0; };
  const auto first = std::find_if(statuses.begin(), statuses.end(), failed);
  return {static_cast<std::size_t>(std::count_if(statuses.begin(), statuses.end(), failed)),
          static_cast<std::size_t>(first - statuses.begin())};
}

std::string column_of(const Shape& shape, std::string_view bytes) {
  std::string fields(shape.stride * shape.count, ' ');
  bytes.copy(fields.data(), fields.size());
  return fields;
}

void read(const Shape& shape, std::string_view bytes) {
  const std::string fields = column_of(shape, bytes);
  const fuzz::Exact exact(fields);
  std::vector<OBS> values(shape.count + 1, OBS{.bits = kBefore});
  std::vector<std::int32_t> statuses(shape.count, -1);
  const column::Result result = column::read(
      exact.data(), shape.stride, shape.count, {shape.code, shape.width, shape.decimals},
      column::Settings::current(), &values.data()->number, statuses.data());
  FUZZ_REQUIRE(result == tally(statuses) && values.back().bits == kBefore);
  const std::int32_t code = is_currency(shape.code) ? VELT_Format::F : shape.code;
  for (std::size_t i = 0; i < shape.count; ++i) {
    OBS value = {.bits = kBefore};
    std::int64_t status = -1;
    obicv_(fields.data() + i * shape.stride, &code, &shape.width, &shape.decimals, &value, &status,
           static_cast<std::int64_t>(shape.bytes));
    FUZZ_REQUIRE(statuses[i] == status);
    FUZZ_REQUIRE(values[i].bits == value.bits);
  }
}

void write(const Shape& shape, fuzz::Input& input) {
  std::vector<double> values(shape.count);
  for (double& value : values) value = input.byte() == 0 ? -1.7976931348623157e308 : input.number();
  fuzz::Guarded fields(static_cast<std::int64_t>(shape.stride * shape.count), '\x01');
  std::vector<std::int32_t> statuses(shape.count, -1);
  const column::Result result =
      column::write(values.data(), shape.count, {shape.code, shape.width, shape.decimals},
                    column::Settings::current(), fields.data(), shape.stride, statuses.data());
  FUZZ_REQUIRE(fields.intact() && result == tally(statuses));
  std::string expected(shape.stride * shape.count, '\x01');
  for (std::size_t i = 0; i < shape.count; ++i) {
    const OBS value = {.number = values[i]};
    std::int64_t status = -1;
    obocv_(&value, &shape.code, &shape.width, &shape.decimals, expected.data() + i * shape.stride,
           &status, static_cast<std::int64_t>(shape.bytes));
    FUZZ_REQUIRE(statuses[i] == status);
  }
  FUZZ_REQUIRE(fields.text() == expected);
}

void strings(const Shape& shape, std::string_view bytes) {
  const std::string fields = column_of(shape, bytes);
  const fuzz::Exact exact(fields);
  const column::Format format = {shape.code, shape.width};
  const column::Settings settings;
  const std::size_t size = column::string_value_size(format);
  std::vector<OBS> values(size / 8 * shape.count + 1, OBS{.bits = kBefore});
  std::vector<std::int32_t> statuses(shape.count, -1);
  const column::Result result =
      column::read_strings(exact.data(), shape.stride, shape.count, format, settings,
                           values.data()->bytes, size, statuses.data());
  FUZZ_REQUIRE(result == tally(statuses) && values.back().bits == kBefore);
  fuzz::Guarded written(static_cast<std::int64_t>(shape.stride * shape.count), '\x01');
  column::write_strings(values.data()->bytes, size, shape.count, format, settings, written.data(),
                        shape.stride);
  FUZZ_REQUIRE(written.intact());
  std::string expected(shape.stride * shape.count, '\x01');
  for (std::size_t i = 0; i < shape.count; ++i) {
    std::vector<OBS> value(size / 8 + 1, OBS{.bits = kBefore});
    std::int64_t status = -1;
    const auto length = static_cast<std::int64_t>(shape.bytes);
    obicv_(fields.data() + i * shape.stride, &shape.code, &shape.width, &shape.decimals,
           value.data(), &status, length);
    FUZZ_REQUIRE(statuses[i] == status);
    FUZZ_REQUIRE(std::memcmp(value.data(), values.data() + i * size / 8, size) == 0);
    obocv_(value.data(), &shape.code, &shape.width, &shape.decimals,
           expected.data() + i * shape.stride, &status, length);
  }
  FUZZ_REQUIRE(written.text() == expected);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::take_settings(input);
  Shape shape = {};
  shape.code = static_cast<std::int32_t>(input.below(90));
  shape.width = input.width();
  shape.decimals = input.decimals();
  shape.bytes = static_cast<std::size_t>(std::max<std::int64_t>(shape.width, 0));
  shape.stride = shape.bytes + static_cast<std::size_t>(input.below(4));
  shape.count = static_cast<std::size_t>(input.below(8));
  const bool writes = input.below(2) == 1;
  if (is_string(shape.code)) {
    strings(shape, input.rest(600));
  } else if (!writes) {
    read(shape, input.rest(600));
  } else if (shape.code != kYearFirst) {
    write(shape, input);  // 86 alone differs: the process writes it with a Java machine
  }
  return 0;
}
