// The object layer beyond values and formats: what only a host uses.
#ifndef IOCV_HOST_H
#define IOCV_HOST_H

#include <iocv/base.h>
#include <iocv/currencies.h>

// Runs iocvinit_ when it is constructed; the library's one object does so when it is loaded.
class IOCV_API VeltIocvInitialize {
 public:
  VeltIocvInitialize();
  ~VeltIocvInitialize();
};

extern IOCV_API VeltIocvInitialize veltiocvInit;

#endif
