// Texts that Java formats.
#include <iocv/extension.h>
#include <iocv/platform_java.h>
#include <jni.h>

#include "host/float_env_preserver.h"

namespace {

constexpr const char* kClass = "com/velt/java_client/core/documents/data/dictionary/VELT_Format";
constexpr const char* kSignature = "(DLjava/lang/String;)Ljava/lang/String;";

std::string formatted(JNIEnv* env, const char* method_name, double value,
                      const std::string& pattern) {
  std::string result;
  const CriticalSection::Lock lock(VeltJVM::CritSect());
  const iocv::FloatEnvPreserver preserver;  // Java may change rounding and the exception masks
  if (!env) return result;
  try {
    JNIAccessor java(env);
    const jclass formatter = java.setClass(kClass);
    const jmethodID method = java.setStaticMethod(method_name, kSignature);
    const jstring java_pattern = java.ToJString(pattern.c_str(), nullptr);
    if (method) {
      const jobject text = env->CallStaticObjectMethod(formatter, method, value, java_pattern);
      result = java.FromJString(text, nullptr);
    }
  } catch (const JNIException&) {
    // Whatever Java had to object to, the text is empty.
  }
  return result;
}

}  // namespace

customFormatter::customFormatter() {
  const CriticalSection::Lock lock(VeltJVM::CritSect());
  const iocv::FloatEnvPreserver preserver;
  VeltJVM* machine = VeltJVM::GetInstance();
  if (!machine) return;
  machine->StartJVM();
  if (machine->IsStarted()) machine->AttachCurrentThread(&env_);
}

customFormatter::~customFormatter() = default;

// The interface hands patterns over by value.
// NOLINTBEGIN(performance-unnecessary-value-param)
std::string customFormatter::convertDate(double value, std::string pattern) {
  return formatted(env_, "toCustomDateString", value, pattern);
}

std::string customFormatter::convertDecimal(double value, std::string pattern) {
  return formatted(env_, "toCustomDecimalString", value, pattern);
}
// NOLINTEND(performance-unnecessary-value-param)
