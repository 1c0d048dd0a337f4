#include "platform/letter_case.h"

#include <locale.h>
#include <wctype.h>

namespace platform {

char32_t in_case(char32_t code, Case target) noexcept {
  static_assert(sizeof(wint_t) == sizeof(char32_t));
  // The one locale of every system that knows all letters and no language.
  static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (!unicode) return code;
  const auto letter = static_cast<wint_t>(code);
  return static_cast<char32_t>(target == Case::lower ? towlower_l(letter, unicode)
                                                     : towupper_l(letter, unicode));
}

}  // namespace platform
