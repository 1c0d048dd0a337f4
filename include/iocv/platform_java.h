// What the library takes from the engine around it to call Java: the process's Java machine and a
// helper over the Java Native Interface. The bundled libiocv_platform finds a machine at run time
// and needs none to be loaded; an engine that has its own links that instead.
//
// Every call of these classes is made under the lock VeltJVM::CritSect().
#ifndef IOCV_PLATFORM_JAVA_H
#define IOCV_PLATFORM_JAVA_H

#include <iocv/platform.h>

#include <string>

// The types of <jni.h>, which this header does not need.
struct JNIEnv_;
struct _jmethodID;
class _jclass;
class _jobject;
class _jstring;
struct JavaVM_;

// The process's Java machine.
class IOCV_API VeltJVM {
 public:
  // Null in a library built without <jni.h>.
  static VeltJVM* GetInstance();

  static CriticalSection& CritSect();

  // Takes the machine that runs in the process, or starts one; only the first call tries. It is
  // looked for under JAVA_HOME, or where that is not set in the directories of /usr/lib/jvm
  // (default* first) and then on the dynamic linker's path. Its class path is iocv.jar beside this
  // library, its heap is small, it prints on stderr and leaves the host's signals alone (-Xrs).
  void StartJVM();

  bool IsStarted() const;

  // Attaches the calling thread, as a daemon, until the thread ends; *env is null when that fails.
  void AttachCurrentThread(JNIEnv_** env);

 private:
  // A library without Java keeps the layout.
  [[maybe_unused]] bool tried_ = false;
  [[maybe_unused]] JavaVM_* machine_ = nullptr;
};

// What went wrong in Java. A plain value.
class IOCV_API JNIException {
 public:
  JNIException(std::string message, std::string operation, std::string subject);
  const char* getMessage() const;    // "java.lang.IllegalArgumentException: Unknown letter"
  const char* getOperation() const;  // "setStaticMethod"
  const char* getSubject() const;    // the class, method or text it was about

 private:
  std::string message_;
  std::string operation_;
  std::string subject_;
};

// One call into Java. References that come up between construction and destruction die with it. A
// Java exception is cleared and thrown on as JNIException by the next function; the destructor
// drops one that is still pending.
class IOCV_API JNIAccessor {
 public:
  explicit JNIAccessor(JNIEnv_* env);
  ~JNIAccessor();
  JNIAccessor(const JNIAccessor&) = delete;
  JNIAccessor& operator=(const JNIAccessor&) = delete;

  // Finds the class that the following calls are about: "java/lang/String".
  _jclass* setClass(const char* name);

  // A static method of that class: "valueOf", "(I)Ljava/lang/String;".
  _jmethodID* setStaticMethod(const char* name, const char* signature);

  // UTF-8 to a Java string and back; what does not convert becomes U+FFFD, a null object the empty
  // text. length, unless null, receives the number of Java's char.
  _jstring* ToJString(const char* text, int* length);
  std::string FromJString(_jobject* text, int* length);

 private:
  [[maybe_unused]] JNIEnv_* env_;
  [[maybe_unused]] _jclass* class_ = nullptr;
};

#endif
