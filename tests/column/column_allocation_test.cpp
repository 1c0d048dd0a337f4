// A column allocates nothing, whatever the format and the settings.
#include <atomic>

#include "column/column_support.h"
#include "support/values.h"

namespace {
std::atomic<long> allocations = 0;
}

// Every allocation ends in malloc. Sanitizers have one of their own and tell of it.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*,
                                                                           std::size_t),
                                                         void (*freed)(const volatile void*));

namespace {
[[maybe_unused]] const int hooked = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void*, std::size_t) { ++allocations; }, [](const volatile void*) {});
}
#else
extern "C" {
void* __libc_malloc(std::size_t size);
__attribute__((visibility("default"))) void* malloc(std::size_t size) {
  ++allocations;
  return __libc_malloc(size);
}
}
#endif

namespace {

using test::Format;
using test::Settings;

constexpr std::size_t kCount = 200;
constexpr std::int64_t kWidths[] = {0, 1, 5, 8, 11, 20, 40, 300};

TEST(ColumnAllocation, IsSeen) {
  const long before = allocations;
  const auto buffer = std::make_unique<std::string>(100, 'x');
  EXPECT_EQ(allocations, before + 2) << *buffer;
}

TEST(ColumnAllocation, NeverHappens) {
  std::mt19937_64 random = test::random_source();
  Settings settings;
  settings.currencies.set(0, "-,a long enough prefix of a currency,,CR");
  for (const int type : test::all_types()) {
    for (const std::int64_t wide : kWidths) {
      const Format format(type, wide, 2);
      const auto width = static_cast<std::size_t>(wide);
      const std::size_t size = iocv::column::string_value_size(format);
      std::string fields;
      std::string strings;
      std::vector<double> values;
      for (std::size_t i = 0; i < kCount; ++i) {
        fields += test::sample_field(format, random);
        strings += test::sample_string(size, random);
        values.push_back(test::sample_value(type, random));
      }
      std::string written = fields;
      std::vector<double> read(kCount);
      std::vector<std::int32_t> statuses(kCount);

      const long before = allocations;
      const Settings copy = settings;
      iocv::column::write(values.data(), kCount, format, copy, written.data(), width,
                          statuses.data());
      iocv::column::write_strings(strings.data(), size, kCount, format, copy, written.data(), width,
                                  statuses.data());
      iocv::column::read(fields.data(), width, kCount, format, copy, read.data(), statuses.data());
      iocv::column::read_strings(fields.data(), width, kCount, format, copy, strings.data(), size,
                                 statuses.data());
      EXPECT_EQ(allocations, before) << "type " << type << ", width " << width;
    }
  }
}

}  // namespace
