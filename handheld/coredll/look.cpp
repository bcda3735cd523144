#include "handheld/coredll/look.h"

#include <cwchar>

namespace handheld {
namespace {

// A common character per script, and faces that may have it, in order of preference.
struct Script {
    WORD language;
    WORD sublanguage;  // SUBLANG_NEUTRAL: any
    BYTE charset;
    WCHAR sample;
    const wchar_t* faces[4];
};
constexpr Script kScripts[] = {
    {LANG_KOREAN,
     SUBLANG_NEUTRAL,
     HANGUL_CHARSET,
     0xD55C,
     {L"Tahoma", L"Gulim", L"WenQuanYi Micro Hei", L"Noto Sans CJK KR"}},
    {LANG_CHINESE,
     SUBLANG_CHINESE_TRADITIONAL,
     CHINESEBIG5_CHARSET,
     0x6A94,
     {L"Tahoma", L"PMingLiU", L"WenQuanYi Micro Hei", L"Noto Sans CJK TC"}},
    {LANG_CHINESE,
     SUBLANG_NEUTRAL,
     GB2312_CHARSET,
     0x8BBE,
     {L"Tahoma", L"SimSun", L"WenQuanYi Micro Hei", L"Noto Sans CJK SC"}},
};

HFONT CreateFace(const wchar_t* face, BYTE charset, int pixels, bool bold) {
    LOGFONTW font = {};
    font.lfHeight = -pixels;
    font.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    font.lfCharSet = charset;
    font.lfQuality = ANTIALIASED_QUALITY;  // dense characters run together without
    std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
    return CreateFontIndirectW(&font);
}

bool HasCharacter(HFONT font, WCHAR character) {
    HDC screen = GetDC(nullptr);
    HGDIOBJ before = SelectObject(screen, font);
    WORD glyph = 0xFFFF;
    GetGlyphIndicesW(screen, &character, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return glyph != 0xFFFF;
}

}  // namespace

HFONT CreateShellFont(LCID locale, int pixels, bool bold) {
    const LANGID language = LANGIDFROMLCID(locale);
    for (const Script& script : kScripts) {
        if (PRIMARYLANGID(language) != script.language ||
            (script.sublanguage != SUBLANG_NEUTRAL && SUBLANGID(language) != script.sublanguage))
            continue;
        for (const wchar_t* face : script.faces) {
            // They need the room; and their thin strokes, smoothed, are too pale to read unless they are bold.
            HFONT font = CreateFace(face, script.charset, pixels + 1, true);
            if (HasCharacter(font, script.sample)) return font;
            DeleteObject(font);
        }
        break;
    }
    return CreateFace(L"Tahoma", DEFAULT_CHARSET, pixels, bold);
}

void UseShellFont(HWND dialog, HFONT font) {
    const auto use = [](HWND control, LPARAM parameter) -> BOOL {
        SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(parameter), TRUE);
        return TRUE;
    };
    EnumChildWindows(dialog, use, reinterpret_cast<LPARAM>(font));
}

void FillColour(HDC to, const RECT& area, COLORREF colour) {
    SetBkColor(to, colour);
    ExtTextOutW(to, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

LRESULT DialogColour(UINT message, WPARAM wParam, LRESULT answer) {
    const bool asksForPaper = message == WM_CTLCOLORDLG || message == WM_CTLCOLORSTATIC;
    if (!asksForPaper || answer != reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE))) return answer;
    SetBkColor(reinterpret_cast<HDC>(wParam), kBodyColour);
    return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
}

void DrawTitle(HDC to, const RECT& strip, int left, int right, const wchar_t* text, HFONT font) {
    FillColour(to, strip, kTitleColour);
    RECT area = {strip.left + left, strip.top, strip.right - right, strip.bottom};
    HGDIOBJ before = SelectObject(to, font);
    SetBkMode(to, TRANSPARENT);
    SetTextColor(to, kTitleTextColour);
    DrawTextW(to, text, -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(to, before);
}

}  // namespace handheld
