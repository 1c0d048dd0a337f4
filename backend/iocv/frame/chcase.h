// Case of text in the current code page.
#pragma once

#include <cstddef>

namespace iocv {

// In place; every character keeps its number of bytes, see VELTMBmemlwr_A.
void lower_case(char* text, std::size_t size) noexcept;
void upper_case(char* text, std::size_t size) noexcept;

}  // namespace iocv
