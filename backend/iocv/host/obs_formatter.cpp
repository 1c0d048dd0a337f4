// A host's own formatters, one for each format type.
#include <iocv/obs_formatter.h>

#include <vector>

#include "frame/status.h"
#include "host/assertion.h"

struct ObsFormatterVector::Impl {
  std::vector<ObsFormatter*> formatters;
};

namespace {

void require_code(int type) {
  iocv::require(0 <= type, "backend/iocv/ObsFormatter", "operator[]", "0 <= type");
}

}  // namespace

ObsFormatter::~ObsFormatter() = default;

int ObsFormatter::Get(OBS*, char*, unsigned int, unsigned int) const {
  return static_cast<int>(iocv::Status::no_converter);
}

ObsFormatterVector::ObsFormatterVector() : impl_(std::make_unique<Impl>()) {}

ObsFormatterVector::~ObsFormatterVector() {
  for (const ObsFormatter* formatter : impl_->formatters) delete formatter;
}

ObsFormatter* const& ObsFormatterVector::operator[](int type) const {
  static ObsFormatter* const zero = nullptr;
  require_code(type);
  const auto index = static_cast<std::size_t>(type);
  return index < impl_->formatters.size() ? impl_->formatters[index] : zero;
}

ObsFormatter*& ObsFormatterVector::operator[](int type) {
  require_code(type);
  const auto index = static_cast<std::size_t>(type);
  if (index >= impl_->formatters.size()) impl_->formatters.resize(index + 1);
  return impl_->formatters[index];
}
