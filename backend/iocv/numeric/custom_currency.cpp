// Custom currencies: one pattern, the process's five with their save slots, and the flat routines.
#include "numeric/custom_currency.h"

#include <iocv/platform.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "frame/settings.h"

namespace iocv {

Currencies process_currencies;
const Currencies default_currencies;

namespace {

constexpr int kSlots = 5;
constexpr std::size_t kLongestCopy = 256;

std::array<Currencies, kSlots> saved_currencies;
CriticalSection change_lock;

bool is_quote(char byte) { return byte == '\'' || byte == '"'; }
bool may_separate(char byte) { return byte == '.' || byte == ','; }

bool is_currency(std::int64_t index) { return index >= 0 && index < Currencies::kCount; }
bool is_slot(std::int64_t slot) { return slot >= 0 && slot < kSlots; }

// The four texts of a pattern, in its order, and its separator.
struct Parts {
  std::array<std::string, 4> texts;
  std::string grouping;
};

Parts parse(std::string_view pattern) {
  Parts parts;
  std::size_t current = 0;
  const auto append = [&](char byte) {
    if (current < parts.texts.size()) parts.texts[current] += byte;
  };
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char byte = pattern[i];
    if (is_quote(byte)) {
      if (++i < pattern.size()) append(pattern[i]);
      continue;
    }
    if (parts.grouping.empty() && may_separate(byte)) parts.grouping = byte;
    if (!parts.grouping.empty() && byte == parts.grouping[0]) {
      ++current;
    } else {
      append(byte);
    }
  }
  return parts;
}

// The text as parse reads it back.
std::string escaped(const std::string& text, const std::string& grouping) {
  std::string result;
  for (const char byte : text) {
    if (is_quote(byte) || (!grouping.empty() && byte == grouping[0])) result += '\'';
    result += byte;
  }
  return result;
}

}  // namespace
}  // namespace iocv

customCurrency::customCurrency() : decimal_(".") {}
customCurrency::customCurrency(const customCurrency& other) = default;
customCurrency& customCurrency::operator=(const customCurrency& other) = default;
customCurrency::~customCurrency() = default;

bool customCurrency::Set(const std::string& pattern) {
  const bool changed = pattern != Get();
  iocv::Parts parts = iocv::parse(pattern);
  negative_prefix_ = std::move(parts.texts[0]);
  prefix_ = std::move(parts.texts[1]);
  suffix_ = std::move(parts.texts[2]);
  negative_suffix_ = std::move(parts.texts[3]);
  grouping_ = std::move(parts.grouping);
  decimal_ = grouping_ == "." ? "," : ".";
  return changed;
}

std::string customCurrency::Get() const {
  return negative_prefix_ + grouping_ + prefix_ + grouping_ + suffix_ + grouping_ +
         negative_suffix_;
}

std::string customCurrency::GetEscaped() const {
  using iocv::escaped;
  return escaped(negative_prefix_, grouping_) + grouping_ + escaped(prefix_, grouping_) +
         grouping_ + escaped(suffix_, grouping_) + grouping_ + escaped(negative_suffix_, grouping_);
}

const std::string& customCurrency::getPrefix() const noexcept { return prefix_; }
const std::string& customCurrency::getSuffix() const noexcept { return suffix_; }
const std::string& customCurrency::getNegativePrefix() const noexcept { return negative_prefix_; }
const std::string& customCurrency::getNegativeSuffix() const noexcept { return negative_suffix_; }
const std::string& customCurrency::getDecimal() const noexcept { return decimal_; }

int currencyFormat::getMaxCustomCurrencies() { return iocv::Currencies::kCount; }

bool currencyFormat::Set(int index, const std::string& pattern) {
  if (!iocv::is_currency(index)) return false;
  const CriticalSection::Lock lock(iocv::change_lock);
  return iocv::process_currencies[index].Set(pattern);
}

std::string currencyFormat::Get(int index) {
  return iocv::is_currency(index) ? iocv::process_currencies[index].Get() : std::string();
}

std::string currencyFormat::GetEscaped(int index) {
  return iocv::is_currency(index) ? iocv::process_currencies[index].GetEscaped() : std::string();
}

void currencyFormat::GetLengths(int index, int& prefix, int& suffix, int& negativePrefix,
                                int& negativeSuffix) {
  prefix = suffix = negativePrefix = negativeSuffix = 0;
  if (!iocv::is_currency(index)) return;
  const customCurrency& currency = iocv::process_currencies[index];
  prefix = static_cast<int>(currency.getPrefix().size());
  suffix = static_cast<int>(currency.getSuffix().size());
  negativePrefix = static_cast<int>(currency.getNegativePrefix().size());
  negativeSuffix = static_cast<int>(currency.getNegativeSuffix().size());
}

const customCurrency& currencyFormat::GetCCX(int index) {
  return iocv::process_currencies[iocv::is_currency(index) ? index : 0];
}

bool currencyFormat::Save(int slot) {
  if (!iocv::is_slot(slot)) return false;
  const CriticalSection::Lock lock(iocv::change_lock);
  iocv::saved_currencies[static_cast<std::size_t>(slot)] = iocv::process_currencies;
  return true;
}

bool currencyFormat::Restore(int slot) {
  if (!iocv::is_slot(slot)) return false;
  const CriticalSection::Lock lock(iocv::change_lock);
  iocv::process_currencies = iocv::saved_currencies[static_cast<std::size_t>(slot)];
  return true;
}

namespace {

std::int64_t logical(bool condition) { return condition ? -1 : 0; }

// The index of currency n, from 1; -1, which no routine accepts, for a number that is none.
int index_of(std::int64_t n) {
  return n >= 1 && n <= iocv::Currencies::kCount ? static_cast<int>(n - 1) : -1;
}

int slot_of(std::int64_t slot) { return iocv::is_slot(slot) ? static_cast<int>(slot) : -1; }

std::int64_t copy_pattern(const std::string& pattern, char* buffer, std::int64_t* count,
                          std::int64_t buffer_length) {
  const auto room = static_cast<std::size_t>(std::max<std::int64_t>(buffer_length, 0));
  const std::size_t copied = std::min({pattern.size(), iocv::kLongestCopy, room});
  std::copy_n(pattern.data(), copied, buffer);
  *count = static_cast<std::int64_t>(copied);
  return logical(copied >= 1);
}

}  // namespace

extern "C" {

std::int64_t setcustomcurrency_(const std::int64_t* n, const char* text, std::int64_t text_length) {
  const auto length = static_cast<std::size_t>(std::max<std::int64_t>(text_length, 0));
  return logical(currencyFormat::Set(index_of(*n), std::string(text, length)));
}

int CSetCustomCurrency(int index, const char* text) {
  return text && currencyFormat::Set(index, text) ? 1 : 0;
}

int IocvSetCCFormat(int index, char* pattern) {
  constexpr int kStored = 0;
  constexpr int kRejected = 2;
  if (!iocv::is_currency(index) || !pattern) return kRejected;
  currencyFormat::Set(index, pattern);
  return kStored;
}

std::int64_t getcustomcurrency_(const std::int64_t* n, char* buffer, std::int64_t* count,
                                std::int64_t buffer_length) {
  return copy_pattern(currencyFormat::Get(index_of(*n)), buffer, count, buffer_length);
}

std::int64_t getcustomcurrencyescaped_(const std::int64_t* n, char* buffer, std::int64_t* count,
                                       std::int64_t buffer_length) {
  return copy_pattern(currencyFormat::GetEscaped(index_of(*n)), buffer, count, buffer_length);
}

std::int64_t getcustomcurrencylengths_(const std::int64_t* n, std::int64_t* prefix,
                                       std::int64_t* suffix, std::int64_t* negative_prefix,
                                       std::int64_t* negative_suffix) {
  int lengths[4];
  currencyFormat::GetLengths(index_of(*n), lengths[0], lengths[1], lengths[2], lengths[3]);
  *prefix = lengths[0];
  *suffix = lengths[1];
  *negative_prefix = lengths[2];
  *negative_suffix = lengths[3];
  return logical(currencyFormat::GetCCX(index_of(*n)).getDecimal() == ".");
}

std::int64_t savecustomcurrency_(const std::int64_t* slot) {
  return logical(currencyFormat::Save(slot_of(*slot)));
}

std::int64_t restorecustomcurrency_(const std::int64_t* slot) {
  return logical(currencyFormat::Restore(slot_of(*slot)));
}

}  // extern "C"
