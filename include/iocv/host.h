// The object layer beyond values and formats: what only a host uses.
#ifndef IOCV_HOST_H
#define IOCV_HOST_H

#include <iocv/backend_settings.h>
#include <iocv/base.h>
#include <iocv/calendar.h>
#include <iocv/currencies.h>
#include <iocv/extension.h>
#include <iocv/iso_text.h>
#include <iocv/obs_formatter.h>

#include <string>

// Runs iocvinit_ when it is constructed; the library's one object does so when it is loaded.
class IOCV_API VeltIocvInitialize {
 public:
  VeltIocvInitialize();
  ~VeltIocvInitialize();
};

extern IOCV_API VeltIocvInitialize veltiocvInit;

// Reads elapsed minutes and seconds (format code 85). Keeps nothing between calls.
class IOCV_API mTimeInput {
 public:
  // Signed seconds; status is stored only on failure, which returns the system-missing constant:
  // 1169 fewer than 3 characters without surrounding blanks, tabs and newlines, 1179 digits alone
  // and fewer than 4, 1189 a fraction with another character. decimals does not count. The decimal
  // point is that of the process's numeric locale. Minutes, seconds and fraction wrap at 32 bits;
  // the length of digits alone counts a minus sign.
  // Example: "1:02.5" -> 62.5.
  double convertTimeStringToObs(std::string text, int decimals, int& status);
};

#endif
