// What a host implements and registers to convert format types of its own, and the formatter and
// the texts that the extension hook builds its fields from.
#ifndef IOCV_EXTENSION_H
#define IOCV_EXTENSION_H

#include <iocv/base.h>

#include <string>

// The converter of one format type. The order of the virtual functions is part of the interface.
// Both return a conversion status of the host's own; 0 is success.
class IOCV_API IocvConverter {
 public:
  virtual ~IocvConverter();
  // text is the field as it stands, leading blanks included.
  virtual int Input(double* value, const char* text, int width, int decimals) = 0;
  // field is the caller's, with its present bytes.
  virtual int Output(const double* value, char* field, int width, int decimals) = 0;
};

// The host's converters. FindConverter answers with the place that holds the converter of a code,
// null when there is none; the library only reads it.
class IOCV_API IocvExtension {
 public:
  virtual ~IocvExtension();
  virtual IocvConverter*& FindConverter(int code) = 0;
};

// Registers an extension, or none with null, and returns the one before. The library never deletes
// it. Register before conversions start: the hook reads the pointer without a lock.
IOCV_API IocvExtension* SetIocvExtension(IocvExtension* extension);

struct JNIEnv_;  // of the Java Native Interface

// Formats numbers by patterns of the Java library. Construction starts the Java machine when there
// is one and attaches the thread to it. Without one, and after any failure in Java, the texts are
// empty. The floating-point environment is the caller's after each call.
class IOCV_API customFormatter {
 public:
  customFormatter();
  ~customFormatter();

  // A stored date under a pattern of java.time.format.DateTimeFormatter.
  // Example: 13166064000, "yyyy-MM-dd" -> "2000-01-01".
  std::string convertDate(double value, std::string pattern);

  // A number under a pattern of java.text.DecimalFormat.
  // Example: 1234.5, "#,##0.00" -> "1,234.50".
  std::string convertDecimal(double value, std::string pattern);

 private:
  [[maybe_unused]] JNIEnv_* env_ = nullptr;  // null without a Java machine
};

// The decimal digits of a whole number in every locale, "-12" for minus twelve.
IOCV_API std::string timeAsString(const long& number);

// The point and the decimals of v, rounded as a whole, as many as are asked for and fit into room
// columns; "" when that is none.
// Example: 59.999, room 8, decimals 2 -> ".00".
IOCV_API std::string decimalAsString(double v, int room, int decimals);

// The last n + 1 characters of v in fixed notation with n decimals; n is at most 16, a shorter text
// stays whole.
// Example: 125.5, 2 -> ".50"; 125.5, 0 -> "6"; infinity, 5 -> "inf".
IOCV_API std::string DoubleToString2(const double& v, unsigned n);

// The same for values between 0 and 1 and n below 16: half a unit is added before the text of n
// significant digits rounds once more, and its first character is dropped. From 16 on the text has
// 16 significant digits.
// Example: 0.25, 2 -> ".26".
IOCV_API std::string DoubleToString(const double& v, unsigned n);

#endif
