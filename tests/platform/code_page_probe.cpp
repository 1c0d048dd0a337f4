#include <iocv/platform.h>

#include <clocale>
#include <cstdio>

int main() {
  std::printf("%s, locale %s\n", VELTMBgetCodePage().c_str(), std::setlocale(LC_ALL, nullptr));
}
