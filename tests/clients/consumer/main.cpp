#include <iocv/host.h>
#include <iocv/iocv.h>

#include <cstdio>

int main() {
  OBS value = {.number = 1234.5};
  const std::string text = ToString(&value, VELT_Format(VELT_Format::F, 8, 2));
  std::puts(text.c_str());
  return text == "1234.50" ? 0 : 1;
}
