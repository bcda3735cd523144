#include "handheld/peghelp/page_layout.h"

#include <gtest/gtest.h>

#include "unit/peghelp/plain_measure.h"

namespace help {
namespace {

class CNarrowMeasure : public CPlainMeasure {
  public:
    int Width(Face, const std::wstring& text) const override { return static_cast<int>(text.size()) * 3; }
};

PageLayout LaidOut(const std::wstring& html, int width = 200) {
    return LayOut(ReadPage(html), width, CPlainMeasure());
}

TEST(PageLayout, BlocksFollowOneAnotherWithoutOverlap) {
    const PageLayout layout =
        LaidOut(L"<h1>a</h1><p>b</p><ul><li>c<li>d</ul><h2>e</h2><table><tr><td>f</table>");
    int y = -1;
    for (const PlacedText& text : layout.texts) {
        if (text.text == L"\u2022") continue;
        EXPECT_GE(text.y, y) << static_cast<char>(text.text[0]);
        y = text.y + text.height;
    }
    EXPECT_GE(layout.height, y);
}

TEST(PageLayout, EmptyPage) {
    EXPECT_EQ(0, LaidOut(L"").height);
    EXPECT_EQ(-1, LaidOut(L"").AnchorY(L"x"));
}

TEST(PageLayout, AnchorsLieAtTheirBlock) {
    const PageLayout layout = LaidOut(L"<p>a</p><p id=x>b</p>");
    ASSERT_EQ(2u, layout.texts.size());
    EXPECT_EQ(layout.texts[1].y, layout.AnchorY(L"x"));
    EXPECT_EQ(-1, layout.AnchorY(L"X"));
}

TEST(PageLayout, ItemsStandBesideTheirMarkers) {
    const PageLayout layout = LaidOut(L"<ol><li>a b<ul><li>c</ul></ol>");
    ASSERT_EQ(4u, layout.texts.size());
    EXPECT_EQ(L"1.", layout.texts[0].text);
    EXPECT_EQ(layout.texts[0].y, layout.texts[1].y);
    EXPECT_LT(layout.texts[0].x, layout.texts[1].x);
    EXPECT_LT(layout.texts[0].x, layout.texts[2].x);
    EXPECT_LT(layout.texts[2].x + layout.texts[2].width, layout.texts[3].x);
}

TEST(PageLayout, MarkersEndAtTheSamePlace) {
    std::wstring html = L"<ol>";
    for (int i = 0; i < 10; ++i) html += L"<li>x";
    const PageLayout layout = LayOut(ReadPage(html), 200, CNarrowMeasure());
    const PlacedText &nine = layout.texts[16], &ten = layout.texts[18];
    EXPECT_EQ(L"9.", nine.text);
    EXPECT_EQ(L"10.", ten.text);
    EXPECT_EQ(nine.x + nine.width, ten.x + ten.width);
}

TEST(PageLayout, CellsOfAColumnLieBelowOneAnother) {
    const PageLayout layout =
        LaidOut(L"<table><tr><th>key<th>b<tr><td>a<td>one two three four five six</table>");
    ASSERT_LE(4u, layout.texts.size());
    EXPECT_EQ(Face::bold, layout.texts[0].face);
    EXPECT_EQ(Face::text, layout.texts[2].face);
    EXPECT_EQ(layout.texts[0].x, layout.texts[2].x);
    EXPECT_EQ(layout.texts[1].x, layout.texts[3].x);
    EXPECT_EQ(layout.texts[0].y, layout.texts[1].y);
    EXPECT_EQ(layout.texts[2].y, layout.texts[3].y);
    ASSERT_EQ(2u, layout.bars.size());
    EXPECT_EQ(PlacedBar::strongLine, layout.bars[0].kind);
    EXPECT_EQ(PlacedBar::faintLine, layout.bars[1].kind);
}

TEST(PageLayout, EachTableHasItsOwnColumns) {
    const PageLayout layout =
        LaidOut(L"<table><tr><td>a<td>b</table><table><tr><td>long<td>c</table><table><tr><td>only</table>");
    EXPECT_LT(layout.texts[1].x, layout.texts[3].x);
}

TEST(PageLayout, BandBehindASecondHeading) {
    const PageLayout layout = LaidOut(L"<h2>a</h2><h1>b</h1><h3>c</h3>");
    ASSERT_EQ(2u, layout.bars.size());
    EXPECT_EQ(PlacedBar::band, layout.bars[0].kind);
    EXPECT_LE(layout.bars[0].y, layout.texts[0].y);
    EXPECT_GE(layout.bars[0].y + layout.bars[0].height, layout.texts[0].y + 20);
    EXPECT_EQ(PlacedBar::strongLine, layout.bars[1].kind);
}

TEST(PageLayout, NothingIsWiderThanThePage) {
    const std::wstring word(50, L'w');
    const PageLayout layout =
        LaidOut(L"<h2>" + word + L"</h2><ul><li>" + word + L"<ul><li><ul><li><ul><li>" + word +
                L"</ul></ul></ul></ul><table><tr><td>" + word + L"<td>" + word + L"</table>");
    for (const PlacedText& text : layout.texts) EXPECT_LE(text.x + text.width, 200);
    for (const PlacedBar& bar : layout.bars) EXPECT_LE(bar.x + bar.width, 200);
}

}  // namespace
}  // namespace help
