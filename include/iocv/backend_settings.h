// The host's settings as a record, and the versioned binary buffer in which two processes exchange
// them. The record is only a carrier: no conversion reads it.
#ifndef IOCV_BACKEND_SETTINGS_H
#define IOCV_BACKEND_SETTINGS_H

#include <iocv/base.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class IOCV_API BackendSettings {
 public:
  struct Data;
  class Serializer;
  class Deserializer;

  // A record of defaults: English, windows-1252, "." and ",", a threshold of 0.0001, two million
  // cells, the present time and a century that begins 69 years before the present local year.
  BackendSettings();
  virtual ~BackendSettings();

  // Copying is default construction and assignment, which copies every field by value.
  BackendSettings(const BackendSettings&) = delete;
  BackendSettings& operator=(const BackendSettings& other);

  // References stay valid until the field is set or the record destroyed.
  const std::string& getProcedureName() const;
  const std::string& getTranslatedProcedureName() const;
  const std::string& getOutputLanguage() const;
  const std::string& getCodePage() const;
  const std::string& getLocale() const;
  const std::string& getDatasetName() const;
  const std::string& getDatasetFileName() const;
  const std::string& getTableSummary() const;
  const std::vector<std::string>& getCustomCurrencies() const;  // the patterns of CCA..CCE
  bool getDigitGrouping() const;
  bool getLeadingZero() const;
  bool getUnicode() const;
  bool getPooling() const;
  bool getBootstrapped() const;
  bool getFastTables() const;
  bool getSigless() const;
  char getSystemMissingChar() const;
  char getDecimalPoint() const;
  char getSeparator() const;
  int getEpochBeginYear() const;
  long long getTimeT() const;  // seconds since 1970
  double getSmall() const;
  long long getMaxCells() const;

  void setProcedureName(const std::string& name, const std::string& translated_name);
  void setOutputLanguage(const std::string& language);
  void setCodePage(const std::string& code_page);
  void setLocale(const std::string& locale);
  void setDatasetName(const std::string& name);
  void setDatasetFileName(const std::string& name);
  void setTableSummary(const std::string& summary);
  void setCustomCurrencies(const std::vector<std::string>& patterns);
  void setDigitGrouping(bool on);
  void setLeadingZero(bool on);
  void setUnicode(bool on);
  void setPooling(bool on);
  void setBootstrapped(bool on);
  void setFastTables(bool on);
  void setSigless(bool on);
  void setSystemMissingChar(char c);
  void setDecimalPoint(char c);
  // Stores the byte A0, the no-break space of the single-byte Western code pages, as a plain blank.
  void setSeparator(char c);
  void setEpochBeginYear(int year);
  void setTimet(long long seconds);  // what getTimeT returns
  void setSmall(double threshold);
  void setMaxCells(long long cells);

  // The record as a buffer of version 6 in this machine's byte order.
  // Example: a default record begins 01 00 06 00 00 00 on a little-endian machine.
  std::string getSettings() const;

  // The same with each currency's text turned from the current code page to UTF-8; bytes that do
  // not convert become U+FFFD.
  // Example: the currency 2C 2C 80 2C in windows-1252 is written as 2C 2C E2 82 AC 2C.
  std::string getSettingsWithU8CCs() const;

  // Reads a buffer of any version and either byte order. Fields that the version does not carry
  // keep their values, except that the maximum of cells becomes 2000000; of versions above 6 only
  // what version 6 knows before that maximum is read. The buffer's currencies are appended to the
  // record's. Reading stops at the first item that is not wholly inside the buffer, and what was
  // read until then stays.
  // Example: "" changes nothing.
  void setSettings(std::string& buffer);

  // Reverses the bytes of a short, int, long long or double in place.
  template <class Item>
  static void SwapBytes(Item& item) {
    static_assert(sizeof(Item) == 2 || sizeof(Item) == 4 || sizeof(Item) == 8);
    auto* bytes = reinterpret_cast<unsigned char*>(&item);
    std::reverse(bytes, bytes + sizeof item);
  }

 private:
  std::unique_ptr<Data> data_;
};

// Appends items to a buffer: numbers as their bytes in this machine's order, a bool as 01 or 00, a
// string as an int, its length, and its bytes. Every buffer begins with the byte-order mark, the
// short 1. Call with exactly these types: a string literal would be sent as a bool.
class IOCV_API BackendSettings::Serializer {
 public:
  Serializer();
  void Send(short item);
  void Send(int item);
  void Send(long long item);
  void Send(double item);
  void Send(bool item);
  void Send(char item);
  void Send(const std::string& item);  // its first 2147483647 bytes
  const std::string& GetString() const;

 private:
  template <class Item>
  void append(const Item& item);

  std::string bytes_;
};

// Reads the items back. A mark other than 1 means the other byte order: numbers and the lengths of
// strings are reversed then. Receive returns false and leaves the item as it was when the item is
// not wholly there (a string of negative length never is); all later calls return false, too.
class IOCV_API BackendSettings::Deserializer {
 public:
  explicit Deserializer(const char* bytes);  // trusts the content
  Deserializer(const char* bytes, std::size_t length);
  bool Receive(short& item);
  bool Receive(int& item);
  bool Receive(long long& item);
  bool Receive(double& item);
  bool Receive(bool& item);  // any byte but 00 is true
  bool Receive(char& item);
  bool Receive(std::string& item);

 private:
  const char* take(std::size_t count);
  template <class Item>
  bool receive(Item& item);

  const char* next_;
  std::size_t left_;
  bool swap_ = false;
};

#endif
