// Finds a Java machine at run time, starts it once and attaches threads to it.
#include <dlfcn.h>
#include <iocv/platform_java.h>
#include <jni.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr jint kJniVersion = JNI_VERSION_1_8;
constexpr const char* kLibraryName = "libjvm.so";
constexpr const char* kLibraryInHome = "lib/server/libjvm.so";
constexpr const char* kHomes = "/usr/lib/jvm";
constexpr const char* kJarName = "iocv.jar";

// The directories of the usual place by name, those whose name begins with "default" first.
std::vector<fs::path> usual_homes() {
  std::vector<fs::path> homes;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(kHomes, ignored)) {
    homes.push_back(entry.path());
  }
  std::sort(homes.begin(), homes.end());
  std::stable_partition(homes.begin(), homes.end(), [](const fs::path& home) {
    return home.filename().string().starts_with("default");
  });
  return homes;
}

void* load(const fs::path& library) { return dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL); }

// The library of a Java machine, or null. A process that has loaded one can have no second.
void* load_machine() {
  if (void* loaded = dlopen(kLibraryName, RTLD_NOW | RTLD_NOLOAD)) return loaded;
  const char* home = std::getenv("JAVA_HOME");
  if (home && *home) return load(fs::path(home) / kLibraryInHome);
  for (const fs::path& usual : usual_homes()) {
    if (void* library = load(usual / kLibraryInHome)) return library;
  }
  return load(kLibraryName);
}

// The jar beside this library or, where that was linked into something else, the installed one.
fs::path jar() {
  static const char here = 0;
  Dl_info info;
  if (dladdr(&here, &info) != 0 && info.dli_fname) {
    std::error_code ignored;
    fs::path beside = fs::absolute(info.dli_fname, ignored).replace_filename(kJarName);
    if (fs::exists(beside, ignored)) return beside;
  }
  return IOCV_JAR;
}

JavaVM* running_machine(void* library) {
  const auto created =
      reinterpret_cast<decltype(&JNI_GetCreatedJavaVMs)>(dlsym(library, "JNI_GetCreatedJavaVMs"));
  JavaVM* machine = nullptr;
  jsize count = 0;
  if (!created || created(&machine, 1, &count) != JNI_OK || count < 1) return nullptr;
  return machine;
}

JavaVM* new_machine(void* library) {
  const auto create =
      reinterpret_cast<decltype(&JNI_CreateJavaVM)>(dlsym(library, "JNI_CreateJavaVM"));
  if (!create) return nullptr;
  std::string texts[] = {
      "-Djava.class.path=" + jar().string(),
      "-Xrs",                          // the host's handlers of SIGINT, SIGTERM, ... stay
      "-XX:+DisableAttachMechanism",   // nor a socket in /tmp that -Xrs would open
      "-Xmx64m",                       // texts of a line need no more
      "-XX:+UseSerialGC",              // no threads for collecting garbage
      "-XX:-UsePerfData",              // no file in /tmp
      "-XX:+DisplayVMOutputToStderr",  // the host's output may be data
  };
  constexpr std::size_t kOptions = std::size(texts);
  JavaVMOption options[kOptions] = {};
  for (std::size_t i = 0; i < kOptions; ++i) options[i].optionString = texts[i].data();
  JavaVMInitArgs arguments = {.version = kJniVersion,
                              .nOptions = kOptions,
                              .options = options,
                              .ignoreUnrecognized = JNI_TRUE};
  JavaVM* machine = nullptr;
  JNIEnv* env = nullptr;
  const jint result = create(&machine, reinterpret_cast<void**>(&env), &arguments);
  if (result != JNI_OK) return nullptr;
  machine->DetachCurrentThread();  // whoever starts it is attached like everybody else
  return machine;
}

// Detaches its thread when the thread ends, so that ended threads leave nothing behind in Java.
struct Attachment {
  JavaVM* machine = nullptr;
  ~Attachment() {
    if (machine) machine->DetachCurrentThread();
  }
};

thread_local Attachment attachment;

}  // namespace

VeltJVM* VeltJVM::GetInstance() {
  static constinit VeltJVM machine;
  return &machine;
}

CriticalSection& VeltJVM::CritSect() {
  static auto& section = *new CriticalSection;  // threads may still convert while a process ends
  return section;
}

void VeltJVM::StartJVM() {
  if (tried_) return;
  tried_ = true;
  void* library = load_machine();
  if (!library) return;
  machine_ = running_machine(library);
  if (!machine_) machine_ = new_machine(library);
}

bool VeltJVM::IsStarted() const { return machine_ != nullptr; }

void VeltJVM::AttachCurrentThread(JNIEnv** env) {
  *env = nullptr;
  if (!machine_) return;
  void* attached = nullptr;
  if (machine_->GetEnv(&attached, kJniVersion) != JNI_OK) {
    if (machine_->AttachCurrentThreadAsDaemon(&attached, nullptr) != JNI_OK) return;
    attachment.machine = machine_;
  }
  *env = static_cast<JNIEnv*>(attached);
}
