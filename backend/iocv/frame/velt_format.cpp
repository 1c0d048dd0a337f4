// The format descriptor and the helpers of the stored value.
#include <iocv/convert.h>
#include <iocv/format.h>

#include <bit>

#include "frame/constants.h"

static_assert(sizeof(VELT_Format) == 4 && alignof(VELT_Format) == 2);
static_assert(sizeof(OBS) == 8 && alignof(OBS) == 8);

VELT_Format::VELT_Format(FormatType type, int width, int decimals)
    : width_(0), type_(0), decimals_(0) {
  Type(type);
  Width(static_cast<unsigned short>(width));
  Decimals(static_cast<unsigned char>(decimals));
}

void VELT_Format::Type(FormatType type) { type_ = static_cast<std::uint8_t>(type); }

void VELT_Format::Width(unsigned short width) {
  width_ = (width > kWidestNumber && !IsString()) ? kWidestNumber : width;
}

void VELT_Format::Decimals(unsigned char decimals) { decimals_ = decimals; }

int VELT_Format::TypeEx() const { return type_; }
unsigned short VELT_Format::Width() const { return width_; }
unsigned char VELT_Format::Decimals() const { return decimals_; }
bool VELT_Format::IsString() const { return type_ == A || type_ == AHEX; }

OBS& AsOBS(double& number) { return reinterpret_cast<OBS&>(number); }

bool ObsEqual(const OBS& a, const OBS& b) { return a.bits == b.bits; }

bool operator==(const OBS& value, double number) { return ObsEqual(value, AsOBS(number)); }
bool operator==(double number, const OBS& value) { return ObsEqual(AsOBS(number), value); }

OBS VELT_SystemMissing() { return {.number = iocv::kSystemMissing}; }
