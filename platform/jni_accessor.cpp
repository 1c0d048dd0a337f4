#include <iocv/platform_java.h>
#include <jni.h>

#include "platform/utf16.h"

namespace {

constexpr jint kReferences = 16;  // more than a call with a few strings needs

std::u16string units_of(JNIEnv* env, jstring text) {
  std::u16string units(static_cast<std::size_t>(env->GetStringLength(text)), u'\0');
  env->GetStringRegion(text, 0, static_cast<jsize>(units.size()),
                       reinterpret_cast<jchar*>(units.data()));
  return units;
}

// What a throwable says of itself. No exception is pending before or after.
std::string description(JNIEnv* env, jthrowable thrown) {
  const jmethodID to_string =
      env->GetMethodID(env->GetObjectClass(thrown), "toString", "()Ljava/lang/String;");
  const auto text =
      to_string ? static_cast<jstring>(env->CallObjectMethod(thrown, to_string)) : nullptr;
  const bool failed = env->ExceptionCheck();
  env->ExceptionClear();
  if (failed || !text) return "Java exception";
  return platform::utf8_of(units_of(env, text));
}

// Clears a pending exception and throws it on.
void check(JNIEnv* env, const char* operation, const char* subject) {
  const jthrowable thrown = env->ExceptionOccurred();
  if (!thrown) return;
  env->ExceptionClear();
  throw JNIException(description(env, thrown), operation, subject);
}

}  // namespace

JNIAccessor::JNIAccessor(JNIEnv* env) : env_(env) {
  if (env_->PushLocalFrame(kReferences) == JNI_OK) return;
  env_->ExceptionClear();
  throw JNIException("no room for references", "JNIAccessor", "");
}

JNIAccessor::~JNIAccessor() {
  env_->ExceptionClear();
  env_->PopLocalFrame(nullptr);
}

jclass JNIAccessor::setClass(const char* name) {
  class_ = env_->FindClass(name);
  check(env_, "setClass", name);
  return class_;
}

jmethodID JNIAccessor::setStaticMethod(const char* name, const char* signature) {
  if (!class_) throw JNIException("no class", "setStaticMethod", name);
  const jmethodID method = env_->GetStaticMethodID(class_, name, signature);
  check(env_, "setStaticMethod", name);
  return method;
}

jstring JNIAccessor::ToJString(const char* text, int* length) {
  const std::u16string units = platform::utf16_of(text);
  const auto count = static_cast<jsize>(units.size());
  const jstring string = env_->NewString(reinterpret_cast<const jchar*>(units.data()), count);
  check(env_, "ToJString", text);
  if (length) *length = count;
  return string;
}

std::string JNIAccessor::FromJString(jobject text, int* length) {
  check(env_, "FromJString", "");  // the text is the result of a call, which may have thrown
  if (length) *length = 0;
  if (!text) return {};
  const std::u16string units = units_of(env_, static_cast<jstring>(text));
  if (length) *length = static_cast<int>(units.size());
  return platform::utf8_of(units);
}
