// What the library takes from the engine around it: text in the current code page, and a lock. The
// bundled libiocv_platform supplies both on a bare machine; an engine that has its own links that
// instead (CMake: IOCV_PLATFORM).
//
// Any number of threads may call these at once while nobody changes the code page.
#ifndef IOCV_PLATFORM_H
#define IOCV_PLATFORM_H

#include <iocv/base.h>

#include <cstdint>
#include <mutex>
#include <string>

extern "C" {

// Bytes of the character that begins at text, of which length bytes are there; 0 when length is
// below 1, -1 when the bytes are no character or length cuts it. Bytes 1..127 are characters of
// their own, byte 0 is none. UTF-8 is strict: shortest forms only, no surrogates, nothing above
// F4 8F BF BF. In a single-byte code page every byte but 0 is a character.
// Example: C3 A9, length 2 in UTF-8 -> 2, length 1 -> -1.
IOCV_API int VELTMBmblen_A(const char* text, std::int64_t length) noexcept;

// Lower and upper case of the length bytes at text, in place. A character whose other case has
// another number of bytes or is not in the code page stays, and so do bytes that are no character.
// Example: upper case of "a" C3 A9 "1" in UTF-8 -> "A" C3 89 "1".
IOCV_API void VELTMBmemlwr_A(char* text, std::int64_t length) noexcept;
IOCV_API void VELTMBmemupr_A(char* text, std::int64_t length) noexcept;

}  // extern "C"

// Replaces out by in converted from the current code page to UTF-8; both may be the same string. A
// byte that does not convert becomes U+FFFD. Returns 0 when every byte converted, else 1.
// Example: 61 E9 in windows-1252 -> 61 C3 A9, 0.
IOCV_API int VELTMBGenericToU8(std::string& out, const std::string& in);

// Changes the current code page of the process to one that the system's iconv knows, spelled as
// iconv does ("UTF-8", "windows-1252", "Shift_JIS"), and whose first 128 codes are ASCII: its
// letters, digits and blank, each byte a character of its own. False, and nothing changes, for any
// other name. Before the first call the code page is that of the environment's character locale
// (LC_ALL, LC_CTYPE, LANG), and UTF-8 where that names none.
// The library itself never calls this; change the code page only while no conversion runs.
IOCV_API bool VELTMBsetCodePage(const char* name);

// The name under which the current code page was set; "UTF-8" for every spelling of that.
IOCV_API std::string VELTMBgetCodePage();

// A lock that its owner may take again, held for the life of a Lock:
//     const CriticalSection::Lock lock(section);
class IOCV_API CriticalSection {
 public:
  class IOCV_API Lock {
   public:
    explicit Lock(CriticalSection& section);
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    CriticalSection& section_;
  };

  CriticalSection();
  ~CriticalSection();
  CriticalSection(const CriticalSection&) = delete;
  CriticalSection& operator=(const CriticalSection&) = delete;

 private:
  std::recursive_mutex mutex_;
};

#endif
