// One-time initialisation, run by a static object when the library is loaded.
#include <iocv/calendar.h>
#include <iocv/clocks.h>
#include <iocv/host.h>
#include <iocv/settings.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

#include "frame/constants.h"
#include "frame/record_pointers.h"

namespace {

constexpr std::string_view kTitle = "iocv, input/output conversion library";
constexpr std::int64_t kFirstCentury = 1900;

template <std::size_t size>
void set_text(char (&text)[size], std::string_view value) {
  std::memset(text, ' ', size);
  std::memcpy(text, value.data(), std::min(size, value.size()));
}

template <std::size_t size>
void set_all(std::int64_t (&fields)[size], const std::int64_t (&values)[size]) {
  std::copy_n(values, size, fields);
}

void init_machine() {
  std::memset(cmamch_.zeros, 0, sizeof cmamch_.zeros);
  std::memset(cmamch_.marks, '?', sizeof cmamch_.marks);  // a fill with code 255 gives "?"
  std::memset(&cmnmch_.blanks, ' ', sizeof cmnmch_.blanks);
  cmnmch_.lowest_finite = iocv::kSystemMissing;
  cmnmch_.largest_output = iocv::kLargest;
  cmnmch_.two_to_52 = iocv::kTwoTo52;
}

void init_general() {
  cmnglb_.system_missing = iocv::kSystemMissing;
  cmnglb_.limit = std::numeric_limits<std::int64_t>::max();
  set_all(cmnglb_.host_values, {53, 80, 42});
  set_all(cmnglb_.host_flags, {1, -1});
  cmnglb_.blank_value = cmnglb_.system_missing;
  set_text(cmaglb_.blanks, "");
  set_text(cmaglb_.title, kTitle);
}

void init_system() {
  cmnsys_.leading_zero = 0;
  set_all(cmnsys_.host_values, {100, 10, 40, 5, 8, 2, 1});
  set_all(cmnsys_.host_run, {-3, -4, -3, -3, -1, -1, -1, -1, -1});
  set_all(cmnsys_.host_negatives, {-1, -1, -1});
  cmasys_.system_missing = '.';
  set_text(cmasys_.dot, ".");
  set_text(cmasys_.blanks[0], "");
  set_text(cmasys_.blanks[1], "");
}

}  // namespace

extern "C" void iocvinit_() {
  static constinit std::int64_t done = 0;
  if (done & 1) return;
  done = -1;
  seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, &cmasys_, &cmnmch_, &cmamch_, &cmnloc_, &cmndtm_, &cmadtm_);
  init_machine();
  init_general();
  setiocvlocale_();
  init_system();
  const double now = sclock_();  // which takes the local offset, too
  obdtex_(&now);
  cmndtm_.century_begin = kFirstCentury;
  cmndtm_.century_mode = 1;
  cmnobog_.small = 0.0001;
}

VeltIocvInitialize::VeltIocvInitialize() { iocvinit_(); }
VeltIocvInitialize::~VeltIocvInitialize() = default;

VeltIocvInitialize veltiocvInit;
