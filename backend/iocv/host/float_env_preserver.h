// Restores the floating-point environment at the end of its scope.
#pragma once

#include <cfenv>

namespace iocv {

class FloatEnvPreserver {
 public:
  FloatEnvPreserver() noexcept : saved_(std::fegetenv(&environment_) == 0) {}
  ~FloatEnvPreserver() {
    if (saved_) std::fesetenv(&environment_);
  }
  FloatEnvPreserver(const FloatEnvPreserver&) = delete;
  FloatEnvPreserver& operator=(const FloatEnvPreserver&) = delete;

 private:
  std::fenv_t environment_;
  bool saved_;
};

}  // namespace iocv
