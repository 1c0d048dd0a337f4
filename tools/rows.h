// Rows of values on their way into a file of some form.
#pragma once

#include <cstddef>
#include <string_view>

namespace iocv::tool {

struct RecordRun;

// Takes the values of one row after the other, in the order of the layout's fields.
class Rows {
 public:
  Rows() = default;
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;
  virtual ~Rows() = default;

  virtual void number(double value) = 0;            // neither missing nor anything but a value
  virtual void text(std::string_view value) = 0;    // UTF-8
  virtual void moment(std::string_view value) = 0;  // ISO 8601: ASCII without quotes or commas
  virtual void missing() = 0;
  virtual void end_row() = 0;

  // Takes whole rows of the run's records at once, from `first` on up to one whose row it cannot
  // tell without the calls above; tells how many. The bytes are those that the calls would write.
  virtual std::size_t take_ordinary(const RecordRun&, std::size_t /*first*/) { return 0; }
};

}  // namespace iocv::tool
