// The token scanner under every date and time reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace iocv {

enum class TokenType : std::int64_t {
  word = 1,
  number,
  decimal_mark,
  time_separator,
  date_separator,
  blanks,
  other,  // any other character, and the end of the field
};
inline constexpr std::size_t kTokenTypes = 7;

// No token shows more of its text; length and value take in all of it.
inline constexpr std::size_t kLongestTokenText = 80;

struct Token {
  TokenType type;
  std::int64_t length;    // in bytes; 0 for mere blanks, 1 for any other delimiter and for the end
  double value;           // the digits of a number, else 0
  std::string_view text;  // of a delimiter its one character, without the blanks around it
};

// Reads the token at position and moves position behind it. A delimiter takes in the blanks on both
// its sides. At the end of the field the token is other, in an empty field blanks.
Token next_token(std::string_view field, std::size_t& position, char decimal) noexcept;

// A walk over the tokens of a field.
class Scanner {
 public:
  Scanner(std::string_view field, char decimal, std::size_t position = 0) noexcept
      : field_(field), position_(position), decimal_(decimal) {}

  Token next() noexcept { return next_token(field_, position_, decimal_); }

  // The next token, without the blanks before it; blanks when nothing else is left.
  Token next_item() noexcept {
    const Token token = next();
    return token.type == TokenType::blanks && !at_end() ? next() : token;
  }

  // Reads on to tell whether nothing but blanks is left.
  bool only_blanks_left() noexcept {
    return at_end() || (next().type == TokenType::blanks && at_end());
  }

  [[nodiscard]] bool at_end() const noexcept { return position_ >= field_.size(); }

  // How many bytes of the field have been read.
  [[nodiscard]] std::size_t position() const noexcept { return position_; }

 private:
  std::string_view field_;
  std::size_t position_;
  char decimal_;
};

}  // namespace iocv
