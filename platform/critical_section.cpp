#include <iocv/platform.h>

CriticalSection::CriticalSection() = default;
CriticalSection::~CriticalSection() = default;

CriticalSection::Lock::Lock(CriticalSection& section) : section_(section) { section.mutex_.lock(); }
CriticalSection::Lock::~Lock() { section_.mutex_.unlock(); }
