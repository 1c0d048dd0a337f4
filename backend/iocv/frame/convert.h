// What the doors above the dispatchers share.
//
// Fields are converted where they lie: the bytes and statuses are those of a conversion through a
// work buffer, without its copies. Two kinds of codes use a work buffer: those that go to the
// extension hook, for a host's converter may count on the zero byte behind the text and on the room
// behind the field, and AHEX, which makes two bytes of one: where text and value share storage, it
// would overwrite what it has still to read.
#pragma once

#include "frame/constants.h"
#include "frame/leaf.h"

namespace iocv {

// Of the codes that the library converts by itself.
constexpr bool works_in_place(FormatCode code) noexcept { return code != FormatCode::ahex; }

}  // namespace iocv
