// The Java half of the platform layer in a build without <jni.h>: there is no machine.
#include <iocv/platform_java.h>

namespace {

[[noreturn]] void refuse(const char* operation) {
  throw JNIException("built without Java", operation, "");
}

}  // namespace

VeltJVM* VeltJVM::GetInstance() { return nullptr; }

CriticalSection& VeltJVM::CritSect() {
  static auto& section = *new CriticalSection;  // threads may still convert while a process ends
  return section;
}

void VeltJVM::StartJVM() {}
bool VeltJVM::IsStarted() const { return false; }
void VeltJVM::AttachCurrentThread(JNIEnv_** env) { *env = nullptr; }

JNIAccessor::JNIAccessor(JNIEnv_*) : env_(nullptr) { refuse("JNIAccessor"); }
JNIAccessor::~JNIAccessor() = default;
_jclass* JNIAccessor::setClass(const char*) { refuse("setClass"); }
_jmethodID* JNIAccessor::setStaticMethod(const char*, const char*) { refuse("setStaticMethod"); }
_jstring* JNIAccessor::ToJString(const char*, int*) { refuse("ToJString"); }
std::string JNIAccessor::FromJString(_jobject*, int*) { refuse("FromJString"); }
