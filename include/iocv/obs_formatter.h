// A host's own formatters, one for each format type.
#ifndef IOCV_OBS_FORMATTER_H
#define IOCV_OBS_FORMATTER_H

#include <iocv/base.h>

#include <memory>

// Base class of a formatter. The order of the virtual functions is part of the interface.
class IOCV_API ObsFormatter {
 public:
  virtual ~ObsFormatter();

  // Does nothing and returns 1105: no converter exists for the type.
  virtual int Get(OBS* value, char* text, unsigned int width, unsigned int decimals) const;
};

// Formatters by type code. The table owns what its slots hold when it is destroyed, and deletes it
// by index, 0 upwards; a formatter that is overwritten before is the caller's to delete. The
// library itself never asks the table. A negative type ends the process by assertion.
class IOCV_API ObsFormatterVector {
 public:
  ObsFormatterVector();
  virtual ~ObsFormatterVector();
  ObsFormatterVector(const ObsFormatterVector&) = delete;
  ObsFormatterVector& operator=(const ObsFormatterVector&) = delete;

  // The formatter of a type; one shared null for every slot that does not exist.
  // Example: of a new table, type 5 -> null.
  virtual ObsFormatter* const& operator[](int type) const;

  // The slot of a type, to store a formatter in; the table grows by null slots up to it. May throw
  // std::bad_alloc.
  // Example: of a new table, type 5 -> a null slot, the last of 6.
  virtual ObsFormatter*& operator[](int type);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

#endif
