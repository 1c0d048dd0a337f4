#include "host/elapsed.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "datetime/mtimeinput.h"
#include "frame/constants.h"
#include "host/double_to_string.h"

namespace iocv {
namespace {

constexpr std::int64_t kNarrowest = 5;
constexpr double kTwoTo64 = 18446744073709551616.0;

// A sign, 18 digits of minutes, a colon, two digits of seconds, the point and 16 decimals.
class ElapsedText {
 public:
  void append(std::string_view text) noexcept {
    size_ += text.copy(bytes_.data() + size_, bytes_.size() - size_);
  }
  // At least two digits.
  void append_number(std::uint64_t number) noexcept {
    if (number < 10) append("0");
    char* const end = bytes_.data() + bytes_.size();
    size_ = static_cast<std::size_t>(std::to_chars(bytes_.data() + size_, end, number).ptr -
                                     bytes_.data());
  }
  [[nodiscard]] std::string_view view() const noexcept { return {bytes_.data(), size_}; }

 private:
  std::array<char, 48> bytes_;
  std::size_t size_ = 0;
};

// The text of the field behind its leading blanks, up to a zero byte.
std::string_view elapsed_text(std::string_view field) noexcept {
  field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
  return field.substr(0, field.find('\0'));
}

}  // namespace

Read<double> read_elapsed_field(std::string_view field, std::int64_t,
                                const Settings& settings) noexcept {
  return read_elapsed(elapsed_text(field), settings.decimal);
}

bool write_missing_constant(Field out, double value, std::int64_t decimals,
                            const Settings& settings) noexcept {
  if (value != kSystemMissing) return false;
  out.mark(out.width() - 1 - std::clamp<std::int64_t>(decimals, 0, out.width()),
           settings.system_missing_char);
  return true;
}

Status write_elapsed_field(Field out, double value, std::int64_t decimals,
                           const Settings& settings) noexcept {
  if (write_missing_constant(out, value, decimals, settings) || out.width() < kNarrowest) {
    return Status::ok;
  }
  if (!(std::fabs(value) < kTwoTo64)) {
    out.overflow();
    return Status::ok;
  }

  const auto elapsed = static_cast<std::uint64_t>(std::fabs(value));
  const std::uint64_t hours = elapsed / 3600;  // [0, 5124095576030431]
  // The part of an hour is counted in doubles, which makes a minute less of some values. Stored
  // output shows it so.
  const double part = static_cast<double>(elapsed) / 3600.0 - static_cast<double>(hours);
  const std::uint64_t minutes = static_cast<std::uint64_t>(part * 60.0) + hours * 60;

  ElapsedText text;
  if (value < 0) text.append("-");
  text.append_number(minutes);
  text.append(":");
  text.append_number(elapsed % 60);
  // The decimals are those of the whole value, rounded, while the seconds are cut: 59.999 with two
  // decimals is 00:59.00.
  const std::int64_t room = out.width() - static_cast<std::int64_t>(text.view().size()) - 1;
  text.append(decimals_in_room(value, room, decimals).view());
  out.put_right(text.view());
  return Status::ok;
}

Status write_unconverted(Field out, double value, std::int64_t decimals,
                         const Settings& settings) noexcept {
  return write_missing_constant(out, value, decimals, settings) ? Status::ok : Status::no_converter;
}

}  // namespace iocv
