#include "code_page_writer.h"

#include <iocv/platform.h>

#include <algorithm>

namespace iocv::tool {
namespace {

// Bytes of the code page for a byte of UTF-8, shift sequences included.
constexpr std::size_t kMostBytes = 8;

// What iconv_open answers when it fails.
bool is_open(iconv_t converter) {
  return converter != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

CodePageWriter::CodePageWriter() : converter_(::iconv_open(VELTMBgetCodePage().c_str(), "UTF-8")) {}

CodePageWriter::~CodePageWriter() {
  if (is_open(converter_)) ::iconv_close(converter_);
}

bool CodePageWriter::convert(std::string& out, const std::string& text) {
  const auto beyond = [](char c) { return static_cast<unsigned char>(c) >= 128; };
  if (std::none_of(text.begin(), text.end(), beyond)) {
    out = text;
    return true;
  }
  if (!is_open(converter_)) return false;
  ::iconv(converter_, nullptr, nullptr, nullptr, nullptr);
  out.resize(text.size() * kMostBytes);
  std::string input = text;
  char* from = input.data();
  char* to = out.data();
  std::size_t left = input.size();
  std::size_t room = out.size();
  if (::iconv(converter_, &from, &left, &to, &room) != 0) return false;
  if (::iconv(converter_, nullptr, nullptr, &to, &room) != 0) return false;
  out.resize(out.size() - room);
  std::string back;  // what reads as another text is no way to write this one
  return VELTMBGenericToU8(back, out) == 0 && back == text;
}

}  // namespace iocv::tool
