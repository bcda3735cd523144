#include "app/language.h"

#include <algorithm>
#include <iterator>

namespace {

struct LanguageRow {
    uint32_t primary;
    int32_t sub;  // -1: any
    uint32_t index;
};

constexpr LanguageRow kLanguages[] = {
    {4, 2, 1},    // Chinese, simplified
    {4, 1, 2},    // Chinese, traditional
    {7, -1, 3},   // German
    {12, -1, 4},  // French
    {16, -1, 5},  // Italian
    {22, -1, 6},  // Portuguese
    {10, -1, 7},  // Spanish
    {18, -1, 8},  // Korean
};

constexpr uint32_t kEuropean[] = {7, 10, 12, 16, 22};
constexpr uint16_t kEuropeanLettering[kLetteringSlots] = {174, 175, 178, 179, 176, 177, 180, 181, 182, 183};
constexpr uint16_t kOtherLettering[kLetteringSlots] = {136, 137, 155, 156, 134, 135, 143, 144, 145, 146};

}  // namespace

uint32_t LanguageIndex(uint32_t lcid) {
    for (const LanguageRow& row : kLanguages)
        if (row.primary == PrimaryLanguage(lcid) && (row.sub < 0 || static_cast<uint32_t>(row.sub) == SubLanguage(lcid)))
            return row.index;
    return 0;
}

// Korean and both kinds of Chinese share English lettering: only the menus and texts are translated for them.
// A Korean user sees English on the buttons.  (Language.AsianLanguagesTakeTheSecondLettering)
const uint16_t* LetteringSet(uint32_t lcid) {
    const bool european =
        std::find(std::begin(kEuropean), std::end(kEuropean), PrimaryLanguage(lcid)) != std::end(kEuropean);
    return european ? kEuropeanLettering : kOtherLettering;
}
