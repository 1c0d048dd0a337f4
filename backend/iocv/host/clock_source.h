// Where the clocks read the time; tests put their own source here.
#pragma once

#include <sys/time.h>

#include <cstdint>

namespace iocv {

struct ProcessorTime {
  timeval user;
  timeval system;
};

struct ClockSource {
  std::int64_t (*seconds)();  // since 1970 in UTC
  ProcessorTime (*processor_time)();
};

extern ClockSource clock_source;

// Local time less the clock, in seconds, at that reading of the clock and in the zone in force.
std::int64_t local_offset(std::int64_t now) noexcept;

}  // namespace iocv
