#include "handheld/peghelp/help_page.h"

#include <gtest/gtest.h>

#include <random>

namespace help {
namespace {

// One run: its text, in * when bold, in [ ] when a key, with its link behind an arrow.
std::wstring Shown(const Runs& runs) {
    std::wstring text;
    for (const Run& run : runs) {
        std::wstring one = run.text;
        if (run.bold) one = L'*' + one + L'*';
        if (run.key) one = L'[' + one + L']';
        if (!run.link.empty()) one += L"->" + run.link;
        text += one;
    }
    return text;
}

// One line a block.
std::wstring Shown(const std::wstring& html) {
    std::wstring text;
    for (const Block& block : ReadPage(html).blocks) {
        for (const std::wstring& anchor : block.anchors) text += L'#' + anchor + L' ';
        switch (block.kind) {
            case Block::heading:
                text += L'h' + std::to_wstring(block.level) + L' ';
                break;
            case Block::paragraph:
                text += L"p ";
                break;
            case Block::item:
                text += std::wstring(static_cast<size_t>(block.level), L'-') + block.marker + L' ';
                break;
            case Block::row:
                text += block.firstRow ? L"first " : L"row ";
                if (block.head) text += L"head ";
                for (const Runs& cell : block.cells) text += L'(' + Shown(cell) + L')';
                break;
            case Block::rule:
                text += L"rule";
                break;
        }
        text += Shown(block.runs) + L'\n';
    }
    return text;
}

TEST(HelpPage, HeadingsAndParagraphs) {
    EXPECT_EQ(L"h1 One\np two\nh2 Three\np four\n", Shown(L"<h1>One</h1> <p>two</p><h2>Three</h2>four"));
}

TEST(HelpPage, TitleIsNoText) {
    const Page page = ReadPage(L"<head><title>Camera &amp; Help</title></head><body>x</body>");
    EXPECT_EQ(L"Camera & Help", page.title);
    ASSERT_EQ(1u, page.blocks.size());
}

TEST(HelpPage, BlanksAreSingleAndNeverAtTheEdges) {
    EXPECT_EQ(L"p a b* c* d\n", Shown(L"<p>\n  a\tb  <b> c</b>  d \n</p>"));
    EXPECT_EQ(L"p a\u00A0b\n", Shown(L"<p>a&nbsp;b</p>"));
    EXPECT_EQ(L"p a\nb\n", Shown(L"<p>a<br> b</p>"));
    EXPECT_EQ(L"", Shown(L"<p> </p> <p></p>"));
}

TEST(HelpPage, StylesAndKeys) {
    EXPECT_EQ(L"p a*b*c\n", Shown(L"<p>a<strong>b</strong>c"));
    EXPECT_EQ(L"p [F1][ F2]\n", Shown(L"<p><kbd>F1</kbd> <kbd>F2</kbd>"));
    EXPECT_EQ(L"p *a*\n", Shown(L"<p><b>a</b><b></b>"));
}

TEST(HelpPage, OnlyLinksInsideThePageAreLinks) {
    EXPECT_EQ(L"p a->x b c\n", Shown(L"<p><a href='#x'>a</a> <a href='http://x/'>b</a> <a href='#'>c</a>"));
}

TEST(HelpPage, AnchorsLeadToTheirBlock) {
    EXPECT_EQ(L"#top h1 a\n#x #y p b\n", Shown(L"<h1 id=top>a</h1><p id=x></p><p><a name=y></a>b"));
}

TEST(HelpPage, Lists) {
    EXPECT_EQ(L"-\u2022 a\n-\u2022 b\n", Shown(L"<ul><li>a</li><li>b</ul>"));
    EXPECT_EQ(L"-1. a\n--\u2022 b\n-2. c\np d\n", Shown(L"<ol><li>a<ul><li>b</li></ul></li><li>c</ol>d"));
    EXPECT_EQ(L"-\u2022 a\n- b\n", Shown(L"<ul><li><p>a</p><p>b</p></li></ul>"));
    EXPECT_EQ(L"p a\n", Shown(L"<li>a</li>"));
}

TEST(HelpPage, Tables) {
    EXPECT_EQ(
        L"first head (k)(v)\nrow (a)(*b* c)\np d\n",
        Shown(L"<table> <tr> <th>k</th> <th>v</th> </tr> <tr><td>a<td> <b>b</b> c </td></tr></table>d"));
    EXPECT_EQ(L"first (a)\nfirst (b)\n", Shown(L"<table><tr><td>a</table><table><tr><td>b</table>"));
    EXPECT_EQ(L"p a\n", Shown(L"<tr><td>a</td></tr>"));
    EXPECT_EQ(L"first (a)()\n", Shown(L"<table><tr><td>a<td></table>"));
}

TEST(HelpPage, RulesAndUnknownTags) {
    EXPECT_EQ(L"p a\nrule\np b\n", Shown(L"a<hr>b"));
    EXPECT_EQ(L"p a b\n", Shown(L"<blink>a</blink> <font size=9>b</font>"));
}

TEST(HelpPage, AnyMixtureOfTagsIsRead) {
    const wchar_t* const parts[] = {L"<table>", L"</table>", L"<tr>",  L"<td>",  L"<li>",
                                    L"<ul>",    L"</ul>",    L"<p>",   L"text ", L"<h2>",
                                    L"</h2>",   L"<b>",      L"<kbd>", L"<br>",  L"<a id=x href=#x>",
                                    L"</a>",    L"<hr>"};
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        std::wstring html;
        for (int n = 0; n < 30; ++n) html += parts[random() % (sizeof parts / sizeof parts[0])];
        for (const Block& block : ReadPage(html).blocks) {
            EXPECT_TRUE(block.kind == Block::rule || !block.runs.empty() || !block.cells.empty());
            for (const auto& run : block.runs) EXPECT_FALSE(run.text.empty());
        }
    }
}

}  // namespace
}  // namespace help
