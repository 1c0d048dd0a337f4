// Files of any bytes, cut into records in blocks of any size.
#include "framing.h"

#include <algorithm>

#include "harness.h"
#include "memory_file.h"

namespace {

using namespace iocv::tool;

struct Cut {
  std::int64_t offset;
  std::string bytes;
  bool operator==(const Cut&) const = default;
};

// No line of a target's inputs is too long, so blocks of any size cut the same records.
std::vector<Cut> records_of(std::string_view bytes, Framing framing, std::size_t size) {
  const fuzz::MemoryFile memory(bytes);
  InputFile file(memory.path());
  RecordReader reader(file, framing, size);
  std::vector<Cut> cuts;
  Block block;
  while (reader.next(block)) {
    for (std::size_t i = 0; i < block.count(); ++i) {
      const Record record = block.record(i);
      FUZZ_REQUIRE(record.number == static_cast<std::int64_t>(cuts.size()) + 1);
      FUZZ_REQUIRE(block.whole(i).starts_with(record.bytes));
      cuts.push_back({record.offset, std::string(record.bytes)});
    }
  }
  FUZZ_REQUIRE(!reader.next(block));
  return cuts;
}

// The same by the rule.
std::vector<Cut> expected(std::string_view bytes, Framing framing) {
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
    if (framing.crlf && feed != rest.npos && line.ends_with('\r')) line.remove_suffix(1);
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
  FUZZ_REQUIRE(records_of(bytes, framing, block) == expected(bytes, framing));
  FUZZ_REQUIRE(records_of(bytes, framing, 4096) == expected(bytes, framing));
  return 0;
}
