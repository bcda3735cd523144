#include <gtest/gtest.h>

TEST(StillRequest, Nothing) {}
