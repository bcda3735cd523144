#include "app/language.h"

#include <gtest/gtest.h>

namespace {

struct Choice {
    uint32_t lcid;
    uint32_t index;
    uint16_t firstLettering;
};

class Language : public testing::TestWithParam<Choice> {};

TEST_P(Language, IndexAndLetteringFollowTheLocale) {
    EXPECT_EQ(LanguageIndex(GetParam().lcid), GetParam().index);
    EXPECT_EQ(LetteringSet(GetParam().lcid)[0], GetParam().firstLettering);
}

INSTANTIATE_TEST_SUITE_P(Locales, Language,
                         testing::Values(Choice{1033, 0, 136}, Choice{2057, 0, 136}, Choice{2052, 1, 136},
                                         Choice{1028, 2, 136}, Choice{0x0C04, 0, 136}, Choice{0x1004, 0, 136},
                                         Choice{1031, 3, 174}, Choice{3079, 3, 174}, Choice{1036, 4, 174},
                                         Choice{1040, 5, 174}, Choice{1046, 6, 174}, Choice{2070, 6, 174},
                                         Choice{3082, 7, 174}, Choice{1034, 7, 174}, Choice{1042, 8, 136},
                                         Choice{1041, 0, 136}, Choice{0, 0, 136}, Choice{0xFFFFFFFF, 0, 136}));

TEST(Language, AsianLanguagesTakeTheSecondLettering) {
    for (uint32_t lcid : {2052u, 1028u, 1042u}) EXPECT_EQ(LetteringSet(lcid), LetteringSet(1033)) << lcid;
}

TEST(Language, LetteringSetsHoldTheirTenBitmapsInSlotOrder) {
    const uint16_t european[] = {174, 175, 178, 179, 176, 177, 180, 181, 182, 183};
    const uint16_t other[] = {136, 137, 155, 156, 134, 135, 143, 144, 145, 146};
    for (uint32_t slot = 0; slot < kLetteringSlots; ++slot) {
        EXPECT_EQ(LetteringSet(1031)[slot], european[slot]);
        EXPECT_EQ(LetteringSet(1033)[slot], other[slot]);
    }
}

}  // namespace
