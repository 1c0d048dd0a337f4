#include <iocv/platform_java.h>

#include <utility>

JNIException::JNIException(std::string message, std::string operation, std::string subject)
    : message_(std::move(message)),
      operation_(std::move(operation)),
      subject_(std::move(subject)) {}

const char* JNIException::getMessage() const { return message_.c_str(); }
const char* JNIException::getOperation() const { return operation_.c_str(); }
const char* JNIException::getSubject() const { return subject_.c_str(); }
