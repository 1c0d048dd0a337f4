// Saves the exported records and restores them at the end of its scope, so that a test may change
// settings freely.
#pragma once

#include <iocv/records.h>

namespace test {

class RecordsGuard {
 public:
  RecordsGuard() = default;
  ~RecordsGuard() {
    cmnglb_ = general_;
    cmnsys_ = system_;
    cmasys_ = system_text_;
    cmnloc_ = locale_;
    cmndtm_ = date_;
    cmadtm_ = date_text_;
    cmnobog_ = small_;
  }
  RecordsGuard(const RecordsGuard&) = delete;
  RecordsGuard& operator=(const RecordsGuard&) = delete;

 private:
  IocvGeneralRecord general_ = cmnglb_;
  IocvSystemRecord system_ = cmnsys_;
  IocvSystemText system_text_ = cmasys_;
  IocvLocaleRecord locale_ = cmnloc_;
  IocvDateRecord date_ = cmndtm_;
  IocvDateText date_text_ = cmadtm_;
  IocvSmallRecord small_ = cmnobog_;
};

}  // namespace test
