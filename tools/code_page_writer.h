// Text from UTF-8 into the current code page.
#pragma once

#include <iconv.h>

#include <string>
#include <string_view>

namespace iocv::tool {

// Keeps to the code page that is current when it is made.
class CodePageWriter {
 public:
  CodePageWriter();
  ~CodePageWriter();
  CodePageWriter(const CodePageWriter&) = delete;
  CodePageWriter& operator=(const CodePageWriter&) = delete;

  // Replaces out by text in the code page. False for a text that is no UTF-8 or has a character
  // without a place in the code page.
  bool convert(std::string& out, const std::string& text);

 private:
  iconv_t converter_;
};

}  // namespace iocv::tool
