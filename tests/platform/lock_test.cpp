// CriticalSection and its scoped lock.
#include <iocv/platform.h>

#include <thread>

namespace {

TEST(CriticalSection, AdmitsOneThreadAtATime) {
  CriticalSection section;
  int count = 0;  // unguarded but for the section
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 20000; ++i) {
        const CriticalSection::Lock lock(section);
        ++count;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(count, 80000);
}

TEST(CriticalSection, ItsOwnerMayTakeItAgain) {
  CriticalSection section;
  bool entered = false;
  {
    const CriticalSection::Lock outer(section);
    const CriticalSection::Lock inner(section);
    entered = true;
  }
  std::thread([&] { const CriticalSection::Lock lock(section); }).join();  // free again
  EXPECT_TRUE(entered);
}

}  // namespace
