#include "app/background_count.h"

#include <gtest/gtest.h>

namespace {

TEST(BackgroundCount, SixtyChecksInARowReachTheLimit) {
    BackgroundCount count;
    for (int i = 1; i < 60; ++i) ASSERT_FALSE(count.Check(false)) << i;
    EXPECT_TRUE(count.Check(false));
}

TEST(BackgroundCount, OneReturnStartsTheCountAgain) {
    BackgroundCount count;
    for (int i = 0; i < 59; ++i) count.Check(false);
    EXPECT_FALSE(count.Check(true));
    for (int i = 1; i < 60; ++i) ASSERT_FALSE(count.Check(false)) << i;
    EXPECT_TRUE(count.Check(false));
}

}  // namespace
