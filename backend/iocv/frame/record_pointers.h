// The records that the object layer uses; seecmn_ may name others than the library's own.
#pragma once

#include <iocv/records.h>

namespace iocv {

struct RecordPointers {
  IocvGeneralRecord* general;
  IocvGeneralText* general_text;
  IocvSystemRecord* system;
  IocvSystemText* system_text;
  IocvMachineRecord* machine;
  IocvMachineText* machine_text;
  IocvLocaleRecord* locale;
  IocvDateRecord* date;
  IocvDateText* date_text;
};

extern RecordPointers record_pointers;

}  // namespace iocv
