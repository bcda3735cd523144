#include "handheld/peghelp/html_tokens.h"

#include <gtest/gtest.h>

namespace help {
namespace {

// "<name#id>href" for opening tags, "</name>", and the text itself, each behind a bar.
std::wstring Tokens(const std::wstring& html) {
    CTokenReader reader(html);
    std::wstring all;
    for (Token token = reader.Next(); token.kind != Token::end; token = reader.Next()) {
        all += L'|';
        if (token.kind == Token::text) all += token.words;
        if (token.kind == Token::close) all += L"</" + token.name + L'>';
        if (token.kind == Token::open) all += L'<' + token.name + L'#' + token.id + L'>' + token.href;
    }
    return all;
}

TEST(HtmlTokens, TagsAndText) {
    EXPECT_EQ(L"|<p#>|a |<b#>|b|</b>|</p>", Tokens(L"<P>a <b>b</B></p >"));
    EXPECT_EQ(L"|<br#>|x", Tokens(L"<br/>x"));
}

TEST(HtmlTokens, Attributes) {
    EXPECT_EQ(L"|<a#n>#x", Tokens(L"<a name=n href=\"#x\">"));
    EXPECT_EQ(L"|<a#a > b>#q&", Tokens(L"<a ID = 'a > b' title href='#q&amp;'>"));
    EXPECT_EQ(L"|<a#>", Tokens(L"<a href=>"));
}

TEST(HtmlTokens, References) {
    EXPECT_EQ(L"|<&>\"\u00A0A\u4E2D", Tokens(L"&lt;&amp;&gt;&quot;&nbsp;&#65;&#x4e2d;"));
    EXPECT_EQ(L"|a & b &nothing; &#; &#x; &#12x;", Tokens(L"a & b &nothing; &#; &#x; &#12x;"));
    EXPECT_EQ(L"|\uFFFD\uFFFD", Tokens(L"&#0;&#99999999;"));
}

TEST(HtmlTokens, CommentsAndStylesAreLeftOut) {
    EXPECT_EQ(L"|a|b", Tokens(L"<!DOCTYPE html><!-- <p> --><?xml?>a<!-- x -->b"));
    EXPECT_EQ(L"|<style#>|</style>|x", Tokens(L"<style>p { color: <red> }</style>x"));
    EXPECT_EQ(L"", Tokens(L"<!-- never closed"));
    EXPECT_EQ(L"|<script#>", Tokens(L"<script>never closed"));
}

TEST(HtmlTokens, WhatIsNoTagIsText) {
    EXPECT_EQ(L"|a |< b", Tokens(L"a < b"));
    EXPECT_EQ(L"|<p", Tokens(L"<p"));
    EXPECT_EQ(L"|</", Tokens(L"</"));
    EXPECT_EQ(L"|<a href=\"x", Tokens(L"<a href=\"x"));
    EXPECT_EQ(L"|<|<|<", Tokens(L"<<<"));
}

}  // namespace
}  // namespace help
