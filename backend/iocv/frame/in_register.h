// A nudge to compilers in the fast paths.
#pragma once

namespace iocv {

// The address or number itself, worked out here and once; compilers otherwise work out addresses
// for each member that is read, move work behind a branch, or keep what it is made of in registers.
template <class T>
T in_register(T word) noexcept {
  asm("" : "+r"(word));
  return word;
}

}  // namespace iocv
