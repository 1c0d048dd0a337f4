// The five currencies as conversions see them.
#pragma once

#include <iocv/currencies.h>

#include <array>
#include <cstddef>

namespace iocv {

struct Currencies {
  static constexpr int kCount = 5;

  // index 0..4 for CCA..CCE.
  const customCurrency& operator[](int index) const noexcept {
    return all[static_cast<std::size_t>(index)];
  }
  customCurrency& operator[](int index) noexcept { return all[static_cast<std::size_t>(index)]; }

  std::array<customCurrency, kCount> all;
};

}  // namespace iocv
