#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "resources/resource.h"
#include "unit/text/module_strings.h"
#include "unit/text/text_library.h"

namespace {

// Every text the program asks for, as ranges of numbers.
constexpr DWORD kAsked[][2] = {{50002, 50004}, {50007, 50008}, {50010, 50060}, {50062, 50064},
                               {50066, 50066}, {50068, 50072}, {50076, 50078}, {50080, 50081},
                               {50083, 50086}, {50088, 50088}, {50091, 50091}, {50094, 50104}};

bool asked(DWORD id) {
    return std::any_of(std::begin(kAsked), std::end(kAsked),
                       [id](const DWORD(&range)[2]) { return id >= range[0] && id <= range[1]; });
}

bool equalWithoutCase(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// The names under which the setup page stores its four choices.
std::vector<std::wstring> keyTexts(DWORD language) {
    return {text(language, 50042), text(language, 50047), text(language, 50052), text(language, 50091)};
}

}  // namespace

TEST(GetStr, LibraryExportsIt) {
    ASSERT_NE(nullptr, textLookup());
}

TEST(GetStr, EveryAskedTextExistsInEveryLanguage) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language)
        for (DWORD id = 50000; id <= 50110; ++id)
            EXPECT_EQ(asked(id), !text(language, id).empty()) << "language " << language << ", text " << id;
}

TEST(GetStr, UnknownIdsYieldTheEmptyText) {
    for (const DWORD id : {0ul, 1ul, 49999ul, 50000ul, 50001ul, 50105ul, 0x7FFFFFFFul, 0xFFFFFFFFul})
        for (const DWORD language : {0ul, 8ul, 9ul}) EXPECT_EQ(L"", text(language, id)) << id;
}

TEST(GetStr, UnknownLanguagesFallBackToEnglish) {
    for (const DWORD language : {9ul, 100ul, 0x80000000ul, 0xFFFFFFFFul})
        EXPECT_EQ(text(LANGUAGE_ENGLISH, 50076), text(language, 50076)) << language;
    EXPECT_NE(text(LANGUAGE_ENGLISH, 50076), text(LANGUAGE_KOREAN, 50076));
}

TEST(GetStr, TheAddressStaysTheSame) {
    ASSERT_NE(nullptr, textLookup());
    const wchar_t* first = nullptr;
    const wchar_t* second = nullptr;
    textLookup()(3, 50004, &first);
    textLookup()(3, 50004, &second);
    EXPECT_EQ(first, second);
}

TEST(GetStr, WithoutAPlaceForTheAddressNothingHappens) {
    ASSERT_NE(nullptr, textLookup());
    textLookup()(0, 50004, nullptr);
    EXPECT_EQ(L"Lumetta Camera", text(0, 50004));
}

TEST(GetStr, LettersOutsideAsciiArriveWhole) {
    EXPECT_EQ(L"Wei\u00DFabgleich", text(LANGUAGE_GERMAN, 50010));
    EXPECT_EQ(L"\u00BFEliminar esta foto?", text(LANGUAGE_SPANISH, 50080));
    EXPECT_EQ(L"\u786E\u5B9A", text(LANGUAGE_SIMPLIFIED_CHINESE, 50002));
    EXPECT_EQ(L"\u78BA\u5B9A", text(LANGUAGE_TRADITIONAL_CHINESE, 50002));
    EXPECT_EQ(L"\uD655\uC778", text(LANGUAGE_KOREAN, 50002));
}

TEST(GetStr, EachLanguageIsInItsOwnScript) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language)
        for (const DWORD id : {50003ul, 50008ul, 50010ul, 50035ul, 50063ul, 50096ul})
            EXPECT_TRUE(inScriptOf(language, text(language, id)))
                << "language " << language << ", text " << id;
}

// The setup page writes these four rows itself when Reset is tapped, before it looks them up.
TEST(GetStr, EnglishRowsReadAsTheSetupPageWritesThem) {
    const auto row = [](DWORD option, DWORD value) {
        return text(0, option) + L" (" + text(0, value) + L")";
    };
    EXPECT_EQ(L"Camera Sounds (On)", row(50042, 50044));
    EXPECT_EQ(L"Instant Review (2 seconds)", row(50047, 50083));
    EXPECT_EQ(L"Self-Timer (Off)", row(50052, 50043));
    EXPECT_EQ(L"Business Card Framing Aid (Off)", row(50088, 50043));
}

TEST(KeyTexts, AreUsableAndDistinctInEveryLanguage) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language) {
        const auto keys = keyTexts(language);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            EXPECT_FALSE(keys[i].empty());
            EXPECT_LE(keys[i].size(), 255u);
            EXPECT_EQ(std::wstring::npos, keys[i].find(L'\\'));
            for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(equalWithoutCase(keys[i], keys[k]));
        }
    }
}

// Start-up reads "business card" and "instant review"; these choices survive a restart.
TEST(KeyTexts, BusinessCardAgreesWithStartUpInEveryLanguage) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language)
        EXPECT_EQ(L"business card", text(language, 50091));
}

TEST(KeyTexts, InstantReviewAgreesWithStartUpInEnglish) {
    EXPECT_TRUE(equalWithoutCase(L"instant review", text(LANGUAGE_ENGLISH, 50047)));
}

// The shown names of these two differ from the names that start-up reads ("camera sound", "selftime"): a
// choice made on the setup page lasts until the program ends.
TEST(KeyTexts, CameraSoundsAndSelfTimerDifferFromStartUp) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language) {
        EXPECT_FALSE(equalWithoutCase(L"camera sound", text(language, 50042)));
        EXPECT_FALSE(equalWithoutCase(L"selftime", text(language, 50052)));
    }
}

// The description of the camera sounds sends the reader to a switch on another page.
TEST(Descriptions, CameraSoundNamesTheVideoPageAndItsFrame) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language) {
        const auto description = text(language, 50046);
        EXPECT_NE(std::wstring::npos, description.find(text(language, 50062))) << language;
        EXPECT_NE(std::wstring::npos,
                  description.find(moduleString(IDS_PAGE_VIDEO + IDS_PAGE_STEP * language)))
            << language;
    }
}

TEST(Messages, ForbiddenCharactersAreListedInFull) {
    for (DWORD language = 0; language < LANGUAGE_COUNT; ++language) {
        const auto message = text(language, 50077);
        const std::wstring characters = L"\\ / : * ? \" < > |";
        ASSERT_GT(message.size(), characters.size());
        EXPECT_EQ(characters, message.substr(message.size() - characters.size())) << language;
    }
}
