// Files of any bytes, cut into records in blocks of any size.
#include "framing.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

#include "harness.h"

namespace {

using namespace iocv::tool;

struct Cut {
  std::int64_t offset;
  std::string bytes;
  bool operator==(const Cut&) const = default;
};

// A file in memory, which has a path as any other.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : number_(::memfd_create("records", 0)) {
    const auto size = static_cast<ssize_t>(bytes.size());
    FUZZ_REQUIRE(number_ >= 0 && ::write(number_, bytes.data(), bytes.size()) == size);
  }
  ~MemoryFile() { ::close(number_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(number_); }

 private:
  int number_;
};

std::vector<Cut> records_of(std::string_view bytes, Framing framing, std::size_t block) {
  const MemoryFile memory(bytes);
  InputFile file(memory.path());
  RecordReader reader(file, framing, block);
  std::vector<Cut> cuts;
  for (;;) {
    const std::span<const Record> records = reader.next();
    if (records.empty()) break;
    for (const Record& record : records) {
      FUZZ_REQUIRE(record.number == static_cast<std::int64_t>(cuts.size()) + 1);
      cuts.push_back({record.offset, std::string(record.bytes)});
    }
  }
  FUZZ_REQUIRE(reader.next().empty());
  return cuts;
}

// The same by the rule: a line longer than a block is its first block of bytes.
std::vector<Cut> expected(std::string_view bytes, Framing framing, std::size_t block) {
  std::vector<Cut> cuts;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::string_view rest = bytes.substr(at);
    const auto offset = static_cast<std::int64_t>(at);
    if (framing.length > 0) {
      cuts.push_back(
          {offset, std::string(rest.substr(0, static_cast<std::size_t>(framing.length)))});
      at += cuts.back().bytes.size();
      continue;
    }
    const std::size_t feed = rest.find('\n');
    std::string_view line = rest.substr(0, feed);
    at += std::min(line.size() + 1, rest.size());
    if (line.size() >= block) {
      line = line.substr(0, block);
    } else if (framing.crlf && feed != rest.npos && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    cuts.push_back({offset, std::string(line)});
  }
  return cuts;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  Framing framing;
  framing.length = input.below(24);
  framing.crlf = input.below(2) == 1;
  const auto block = static_cast<std::size_t>(input.below(40) + 1);
  const std::string_view bytes = input.rest(4000);
  FUZZ_REQUIRE(records_of(bytes, framing, block) == expected(bytes, framing, block));
  FUZZ_REQUIRE(records_of(bytes, framing, 4096) == expected(bytes, framing, 4096));
  return 0;
}
