// A buffer that ends (or begins) flush with an unmapped page, so that one byte too far is a fault,
// with sentinels on its other side.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace test {

enum class Edge { end, begin };

class Guarded {
 public:
  static constexpr char kSentinel = '\x5A';

  explicit Guarded(std::size_t size, Edge edge = Edge::end);
  Guarded(std::string_view content, Edge edge = Edge::end);
  ~Guarded();
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;

  [[nodiscard]] char* data() const { return first_; }
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] std::string text() const { return {first_, size_}; }
  // True while the bytes before (or behind) the buffer hold their sentinels.
  [[nodiscard]] bool intact() const;

 private:
  char* pages_;
  std::size_t mapped_;  // bytes between the two unmapped pages
  char* first_;
  std::size_t size_;
};

// The bytes with blanks as dots and control bytes as \xNN, for messages.
std::string shown(std::string_view bytes);

}  // namespace test
