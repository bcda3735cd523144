#include <gtest/gtest.h>

TEST(Deliberate, Nothing) {}
