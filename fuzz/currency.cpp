// Currency patterns of any text, and numbers that they decorate.
#include <iocv/currencies.h>
#include <iocv/format.h>
#include <iocv/number_formats.h>

#include <algorithm>
#include <string>

#include "harness.h"

namespace {

bool same_texts(const customCurrency& a, const customCurrency& b) {
  return a.getNegativePrefix() == b.getNegativePrefix() && a.getPrefix() == b.getPrefix() &&
         a.getSuffix() == b.getSuffix() && a.getNegativeSuffix() == b.getNegativeSuffix() &&
         a.getDecimal() == b.getDecimal();
}

void patterns(const std::string& pattern) {
  customCurrency currency;
  const bool changed = currency.Set(pattern);
  FUZZ_REQUIRE(changed == (pattern != customCurrency().Get()));
  const std::string plain = currency.Get();
  FUZZ_REQUIRE(currency.Set(pattern) == (pattern != plain));
  FUZZ_REQUIRE(currency.Get() == plain);

  // The escaped pattern is read back, unless the texts before the first separator hold a "." or ","
  // that is not the grouping character, or there is no grouping character to escape with.
  const std::string escaped = currency.GetEscaped();
  const std::string& first = currency.getNegativePrefix();
  const bool has_grouping =
      plain.size() != currency.getNegativePrefix().size() + currency.getPrefix().size() +
                          currency.getSuffix().size() + currency.getNegativeSuffix().size();
  const char other = currency.getDecimal()[0];
  customCurrency again;
  again.Set(escaped);
  if (has_grouping && first.find(other) == first.npos) {
    FUZZ_REQUIRE(same_texts(currency, again));
    FUZZ_REQUIRE(again.Get() == plain);
  }
}

// The flat getters copy at most what there is room for.
void flat_patterns(const std::string& pattern, std::int64_t n, std::int64_t room) {
  const bool known = n >= 1 && n <= 5;
  const fuzz::Exact text(pattern);
  const auto size = static_cast<std::int64_t>(pattern.size());
  FUZZ_REQUIRE(setcustomcurrency_(&n, text.data(), size) == 0 || known);
  for (const auto get : {getcustomcurrency_, getcustomcurrencyescaped_}) {
    fuzz::Guarded buffer(room, '\x01');
    std::int64_t count = -1;
    const bool some = get(&n, buffer.data(), &count, room) != 0;
    FUZZ_REQUIRE(buffer.intact());
    FUZZ_REQUIRE(count >= 0 && count <= std::min<std::int64_t>(room, 256) && some == (count > 0));
    FUZZ_REQUIRE(known || count == 0);
  }
}

// obocc_ takes its texts as lengths and bytes; the lengths may promise more than there is.
void decoration(fuzz::Input& input, std::string_view pattern) {
  std::int64_t lengths[4];
  for (std::int64_t& length : lengths)
    length = input.byte() < 224 ? input.below(12) : input.integer();
  const std::int64_t width = input.width();
  const std::int64_t decimals = input.decimals();
  const double value = input.number();
  const char pair[2] = {input.pick({'.', ',', ' ', '\''}), input.pick({'.', ','})};
  const fuzz::Exact texts(pattern);
  std::string fields[2];
  for (const char before : {'\x01', '\x02'}) {
    fuzz::Guarded field(width, before);
    std::int64_t status = -1;
    obocc_(&value, &width, &decimals, fuzz::Exact({pair, 2}).data(), lengths, texts.data(),
           field.data(), &status, 2, static_cast<std::int64_t>(pattern.size()),
           std::max<std::int64_t>(width, 0));
    FUZZ_REQUIRE(field.intact() && status == 0);
    fields[before - 1] = field.text();
  }
  FUZZ_REQUIRE(fields[0] == fields[1]);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::take_settings(input);
  const std::string pattern(input.text(330));
  patterns(pattern);
  flat_patterns(pattern, input.below(8) - 1, input.below(256) * 2);
  const std::int64_t width = input.width();
  const std::int64_t decimals = input.decimals();
  const double value = input.number();
  currencyFormat::Set(0, pattern);
  fuzz::write(value, VELT_Format::CCA, width, decimals, {});
  decoration(input, pattern);
  return 0;
}
