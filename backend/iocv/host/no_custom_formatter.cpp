// The formatter in a build without <jni.h>: every text is empty.
#include <iocv/extension.h>

customFormatter::customFormatter() = default;
customFormatter::~customFormatter() = default;
std::string customFormatter::convertDate(double, std::string) { return {}; }
std::string customFormatter::convertDecimal(double, std::string) { return {}; }
