// What a reader with an attempt in front answers, beside what its plain steps answer, for fields
// that end, and begin, at an unmapped page.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "frame/settings.h"
#include "frame/status.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {

class BothWays {
 public:
  explicit BothWays(std::size_t widest) {
    for (std::size_t width = 0; width <= widest; ++width) {
      for (const Edge edge : {Edge::begin, Edge::end}) {
        buffers_.push_back(std::make_unique<Guarded>(width, edge));
      }
    }
  }

  // fast and plain are field -> value and status; where names the case.
  template <class Fast, class Plain, class Where>
  void expect_same(std::string_view bytes, Fast fast, Plain plain, Where where) const {
    const iocv::Read<double> expected = plain(bytes);
    for (const std::size_t edge : {0U, 1U}) {
      char* first = buffers_[2 * bytes.size() + edge]->data();
      if (!bytes.empty()) std::memcpy(first, bytes.data(), bytes.size());
      const std::string_view field(first, bytes.size());
      const iocv::Read<double> read = fast(field);
      ASSERT_TRUE(std::bit_cast<std::uint64_t>(read.value) ==
                      std::bit_cast<std::uint64_t>(expected.value) &&
                  read.status == expected.status)
          << "|" << shown(bytes) << "| " << where() << ": " << described(read.value) << ", status "
          << static_cast<int>(read.status) << "; plain " << described(expected.value) << ", status "
          << static_cast<int>(expected.status);
      ASSERT_EQ(field, bytes);
    }
  }

 private:
  std::vector<std::unique_ptr<Guarded>> buffers_;
};

}  // namespace test
