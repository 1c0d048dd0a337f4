#include "platform/code_page.h"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <mutex>

#include "platform/pages.h"

namespace platform {
namespace {

constexpr const char* kUtf8 = "UTF-8";

// True for "UTF-8", "utf8" and the like.
bool names_utf8(std::string_view name) {
  std::string plain;
  for (const char c : name) {
    if (c != '-' && c != '_') plain += ascii_in_case(c, Case::lower);
  }
  return plain == "utf8";
}

std::unique_ptr<const CodePage> make_page(const std::string& name) {
  if (names_utf8(name)) return std::make_unique<Utf8Page>();
  // iconv takes an empty name as the locale's and a slash as the beginning of options.
  if (name.empty() || name.find('/') != name.npos) return nullptr;
  auto codec = std::make_unique<Codec>(name.c_str());
  if (!codec->usable()) return nullptr;
  if (MultibytePage::fits(*codec)) return std::make_unique<MultibytePage>(name, std::move(codec));
  return std::make_unique<SingleBytePage>(name, std::move(codec));
}

// The code set of the environment's character locale; the process's own locale is left alone.
std::string environment_name() {
  constexpr std::string_view kPlainC = "ANSI_X3.4-1968";
  const locale_t environment = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (!environment) return kUtf8;
  std::string name = nl_langinfo_l(CODESET, environment);
  freelocale(environment);
  return name == kPlainC ? kUtf8 : name;
}

class Registry {
 public:
  // Never destroyed: static objects of the host may convert while the process ends.
  static Registry& instance() {
    static Registry& registry = *new Registry;
    return registry;
  }

  [[nodiscard]] const CodePage& current() const noexcept {
    return *current_.load(std::memory_order_acquire);
  }

  bool select(const std::string& name) {
    const std::lock_guard lock(mutex_);
    auto found = pages_.find(name);
    if (found == pages_.end()) {
      std::unique_ptr<const CodePage> page = make_page(name);
      if (!page) return false;
      found = pages_.emplace(name, std::move(page)).first;
    }
    current_.store(found->second.get(), std::memory_order_release);
    return true;
  }

 private:
  Registry() {
    if (!select(environment_name())) select(kUtf8);
  }

  std::mutex mutex_;
  std::map<std::string, std::unique_ptr<const CodePage>> pages_;  // by name, under the lock
  std::atomic<const CodePage*> current_ = nullptr;
};

// The environment counts as it is when the library is loaded.
[[maybe_unused]] const CodePage& at_load = CodePage::current();

}  // namespace

const CodePage& CodePage::current() noexcept { return Registry::instance().current(); }

bool CodePage::select(const char* name) {
  return name != nullptr && Registry::instance().select(name);
}

}  // namespace platform
