#include "datetime/obdtps.h"

#include <iocv/date_input.h>

#include <algorithm>
#include <array>

#include "datetime/read_date.h"
#include "frame/field.h"
#include "frame/ictyp.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::size_t kCharClasses = 41;  // their numbers are 1..40

using TypeTable = std::array<TokenType, kCharClasses>;

constexpr TypeTable type_table(TokenType comma, TokenType period) {
  struct Row {
    CharClass character;
    TokenType type;
  };
  const Row rows[] = {
      {CharClass::upper, TokenType::word},
      {CharClass::lower, TokenType::word},
      {CharClass::high, TokenType::word},
      {CharClass::multibyte, TokenType::word},
      {CharClass::digit, TokenType::number},
      {CharClass::colon, TokenType::time_separator},
      {CharClass::minus, TokenType::date_separator},
      {CharClass::slash, TokenType::date_separator},
      {CharClass::comma, comma},
      {CharClass::period, period},
      {CharClass::blank, TokenType::blanks},
  };
  TypeTable table = {};
  table.fill(TokenType::other);
  for (const Row& row : rows) table[static_cast<std::size_t>(row.character)] = row.type;
  return table;
}

constexpr TypeTable kWithPoint = type_table(TokenType::date_separator, TokenType::decimal_mark);
constexpr TypeTable kWithComma = type_table(TokenType::decimal_mark, TokenType::date_separator);

// One token of a field, character by character.
class TokenReader {
 public:
  TokenReader(std::string_view field, std::size_t position, char decimal)
      : field_(field),
        types_(decimal == '.' ? kWithPoint : kWithComma),
        start_(position),
        position_(position) {}

  [[nodiscard]] std::size_t position() const { return position_; }

  Token read() {
    classify();
    switch (type_) {
      case TokenType::number: return number();
      case TokenType::word: return word();
      default: return delimiter();
    }
  }

 private:
  Token number() {
    double value = 0;
    while (type_ == TokenType::number) {
      value = 10 * value + (field_[position_] - '0');
      advance(1);
    }
    return whole(TokenType::number, value);
  }

  Token word() {
    // A longer character counts two bytes; what is left of it is classed on its own.
    while (type_ == TokenType::word) advance(character_ == CharClass::multibyte ? 2 : 1);
    return whole(TokenType::word, 0);
  }

  // Blanks, at most one other character, and the blanks behind it.
  Token delimiter() {
    Token token = {TokenType::blanks, 0, 0, {}};
    while (!at_end() && type_ != TokenType::word && type_ != TokenType::number) {
      if (type_ != TokenType::blanks) {
        if (token.length > 0) break;
        token = {type_, 1, 0, field_.substr(position_, 1)};
      }
      advance(1);
    }
    return token;
  }

  Token whole(TokenType type, double value) const {
    const std::size_t length = position_ - start_;
    return {type, static_cast<std::int64_t>(length), value,
            field_.substr(start_, std::min(length, kLongestTokenText))};
  }

  [[nodiscard]] bool at_end() const { return position_ >= field_.size(); }

  void advance(std::size_t bytes) {
    position_ += bytes;
    classify();
  }

  void classify() {
    std::size_t length = 0;
    character_ = char_class_at(field_, position_, length);
    type_ = types_[static_cast<std::size_t>(character_)];
  }

  std::string_view field_;
  const TypeTable& types_;
  std::size_t start_;
  std::size_t position_;
  CharClass character_ = CharClass::other;
  TokenType type_ = TokenType::other;
};

}  // namespace

Token next_token(std::string_view field, std::size_t& position, char decimal) noexcept {
  if (position >= field.size()) {
    return {position == 0 ? TokenType::blanks : TokenType::other, 1, 0, {}};
  }
  TokenReader reader(field, position, decimal);
  const Token token = reader.read();
  position = reader.position();
  return token;
}

}  // namespace iocv

extern "C" void obdtps_(const char* text, std::int64_t* position, const std::int64_t* last,
                        char* token_text, double* value, std::int64_t* type, std::int64_t* length,
                        std::int64_t, std::int64_t token_text_length) {
  std::size_t offset = iocv::offset_of(*position);
  const iocv::Token token =
      iocv::next_token(iocv::input_field(text, *last), offset, iocv::Settings::current().decimal);
  *position = iocv::position_of(offset);
  *value = token.value;
  *type = static_cast<std::int64_t>(token.type);
  *length = token.length;

  const iocv::Field out(token_text, token_text_length);
  out.blank();
  for (std::size_t i = 0; i < token.text.size(); ++i) {
    out.put(static_cast<std::int64_t>(i), token.text[i]);
  }
}
