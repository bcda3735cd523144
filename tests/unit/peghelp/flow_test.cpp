#include "handheld/peghelp/flow.h"

#include <gtest/gtest.h>

#include "unit/peghelp/plain_measure.h"

namespace help {
namespace {

Run Plain(const std::wstring& text) {
    return {text, false, false, {}};
}
Run Key(const std::wstring& text) {
    return {text, false, true, {}};
}
Run Link(const std::wstring& text) {
    return {text, false, false, L"x"};
}

// The lines as they appear; gaps between texts are blanks of 10 pixels.
std::vector<std::wstring> Lines(const Runs& runs, int width) {
    PageLayout layout;
    FlowRuns(runs, Face::text, 0, 0, width, CPlainMeasure(), layout);
    std::vector<std::wstring> lines;
    int right = 0;
    for (const PlacedText& text : layout.texts) {
        const auto line = static_cast<size_t>(text.y / 20);
        if (lines.size() <= line) {
            lines.resize(line + 1);
            right = 0;
        }
        if (text.x > right) lines[line] += std::wstring(static_cast<size_t>((text.x - right) / 10), L' ');
        lines[line] += text.text;
        right = text.x + text.width;
        EXPECT_LE(right, width);
    }
    return lines;
}

using Text = std::vector<std::wstring>;

TEST(Flow, WordsFillTheLine) {
    EXPECT_EQ((Text{L"ab cd", L"ef"}), Lines({Plain(L"ab cd ef")}, 50));
    EXPECT_EQ((Text{L"ab cd", L"ef"}), Lines({Plain(L"ab cd ef")}, 79));
    EXPECT_EQ((Text{L"ab cd ef"}), Lines({Plain(L"ab cd ef")}, 80));
    EXPECT_EQ((Text{L"a", L"b"}), Lines({Plain(L"a\nb")}, 80));
}

TEST(Flow, RunsWithoutABlankStayTogether) {
    EXPECT_EQ((Text{L"ab", L"cdef,"}), Lines({Plain(L"ab cd"), Link(L"ef"), Plain(L",")}, 60));
    EXPECT_EQ((Text{L"ab cd", L"ef"}), Lines({Plain(L"ab cd"), Link(L" ef")}, 60));
}

TEST(Flow, AWordThatIsTooLongIsCut) {
    EXPECT_EQ((Text{L"ab", L"cdefg", L"hi j"}), Lines({Plain(L"ab cdefghi j")}, 50));
}

TEST(Flow, ChineseBreaksAnywhereExceptAtPunctuation) {
    EXPECT_EQ((Text{L"\u4E2D\u4E2D\u4E2D", L"\u4E2D"}), Lines({Plain(L"\u4E2D\u4E2D\u4E2D\u4E2D")}, 30));
    EXPECT_EQ((Text{L"\u4E2D\u4E2D", L"\u4E2D\u3002"}), Lines({Plain(L"\u4E2D\u4E2D\u4E2D\u3002")}, 30));
    EXPECT_EQ((Text{L"\u4E2D\u4E2D", L"\u300C\u4E2D\u300D"}),
              Lines({Plain(L"\u4E2D\u4E2D\u300C\u4E2D\u300D")}, 30));
    EXPECT_EQ((Text{L"\u4E2D\u4E2D", L"JPEG"}), Lines({Plain(L"\u4E2D\u4E2DJPEG")}, 50));
}

TEST(Flow, FrenchMarksStayWithTheirWords) {
    EXPECT_EQ((Text{L"a", L"bc\u00A0;", L"d"}), Lines({Plain(L"a bc ; d")}, 40));
    EXPECT_EQ((Text{L"aa", L"\u00AB\u00A0b\u00A0\u00BB"}), Lines({Plain(L"aa \u00AB b \u00BB")}, 60));
    EXPECT_EQ((Text{L"a", L"bc\u00A0:"}), Lines({Plain(L"a "), Link(L"bc"), Plain(L" :")}, 40));
}

TEST(Flow, KoreanBreaksAtBlanks) {
    EXPECT_EQ((Text{L"\uD55C", L"\uD55C\uD55C"}), Lines({Plain(L"\uD55C \uD55C\uD55C")}, 30));
}

TEST(Flow, AKeyIsOnePieceInItsFrame) {
    PageLayout layout;
    const int below =
        FlowRuns({Plain(L"a "), Key(L"F 1"), Plain(L" b")}, Face::text, 5, 7, 100, CPlainMeasure(), layout);
    ASSERT_EQ(3u, layout.texts.size());
    EXPECT_EQ(5 + 10 + 10, layout.texts[1].x);
    EXPECT_EQ(30 + 2 * kKeyPadding, layout.texts[1].width);
    EXPECT_EQ(L"F 1", layout.texts[1].text);
    EXPECT_EQ(Face::key, layout.texts[1].face);
    EXPECT_EQ(layout.texts[1].x + layout.texts[1].width + 10, layout.texts[2].x);
    EXPECT_EQ(27, below);
}

TEST(Flow, ALinkOverTwoLinesIsOneLink) {
    PageLayout layout;
    FlowRuns({Link(L"ab cd"), Plain(L" "), Link(L"ef")}, Face::text, 0, 0, 30, CPlainMeasure(), layout);
    ASSERT_EQ(3u, layout.texts.size());
    EXPECT_EQ(0, layout.texts[0].link);
    EXPECT_EQ(0, layout.texts[1].link);
    EXPECT_EQ(1, layout.texts[2].link);
    EXPECT_EQ(2u, layout.links.size());
}

TEST(Flow, WidthOfOneLine) {
    EXPECT_EQ(50, WidthOf({Plain(L"ab cd")}, Face::text, CPlainMeasure()));
    EXPECT_EQ(30 + 2 * kKeyPadding, WidthOf({Plain(L"a"), Key(L"F1")}, Face::text, CPlainMeasure()));
    EXPECT_EQ(0, WidthOf({}, Face::text, CPlainMeasure()));
}

TEST(Flow, AHugeWordIsCutInReasonableTime) {
    PageLayout layout;
    const int below =
        FlowRuns({Plain(std::wstring(200000, L'x'))}, Face::text, 0, 0, 100, CPlainMeasure(), layout);
    EXPECT_EQ(20000 * 20, below);
}

}  // namespace
}  // namespace help
