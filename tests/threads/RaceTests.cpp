#include <gtest/gtest.h>
#include <thread>

#if defined(__SANITIZE_THREAD__)
#define TESSIVO_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define TESSIVO_THREAD_SANITIZER
#endif
#endif

#ifdef TESSIVO_THREAD_SANITIZER
namespace {

/// Two threads write one number with nothing between them.
void race() {
    int number = 0;
    std::thread other([&] {
        for (int i = 0; i < 100'000; ++i)
            ++number;
    });
    for (int i = 0; i < 100'000; ++i)
        ++number;
    other.join();
    std::exit(number > 0 ? 0 : 1);
}

// Were this race not told, the silence of the other tests would say nothing.
TEST(ThreadSanitizer, reportsARaceThatIsThere) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(race(), ::testing::ExitedWithCode(66), "data race");
}

} // namespace
#endif
