// MessageBoxW as the handheld shows it: inside the 240 x 320 screen, under a title strip of its own.
#include <algorithm>
#include <cstring>
#include <string>

#include "handheld/coredll/locale.h"
#include "handheld/coredll/look.h"
#include "handheld/coredll/message_box_texts.h"
#include "handheld/coredll/module.h"
#include "handheld/coredll/screen.h"

using namespace handheld;

namespace {

constexpr int kWidest = 224;
constexpr int kNarrowest = 120;
constexpr int kTitleHeight = 20;
constexpr int kMargin = 8;
constexpr int kIconSize = 32;
constexpr int kButtonHeight = 22;
constexpr int kButtonWidth = 50;  // at least; longer captions widen all buttons alike
constexpr int kButtonGap = 6;
constexpr int kCaptionMargin = 6;
constexpr WORD kTextId = 0xFFFF;
constexpr WORD kIconId = 0x0014;

struct ButtonRow {
    int count;
    int ids[3];
};
// By the low four bits of the style: MB_OK .. MB_RETRYCANCEL.
constexpr ButtonRow kButtonRows[] = {
    {1, {IDOK}},
    {2, {IDOK, IDCANCEL}},
    {3, {IDABORT, IDRETRY, IDIGNORE}},
    {3, {IDYES, IDNO, IDCANCEL}},
    {2, {IDYES, IDNO}},
    {2, {IDRETRY, IDCANCEL}},
};

const wchar_t* IconName(UINT style) {
    switch (style & MB_ICONMASK) {
        case MB_ICONHAND:
            return IDI_HAND;
        case MB_ICONQUESTION:
            return IDI_QUESTION;
        case MB_ICONEXCLAMATION:
            return IDI_EXCLAMATION;
        case MB_ICONASTERISK:
            return IDI_ASTERISK;
        default:
            return nullptr;
    }
}

class CMessageBox {
  public:
    CMessageBox(const wchar_t* text, const wchar_t* caption, UINT style)
        : m_text(text ? text : L""),
          m_caption(caption ? caption : L""),
          m_style(style),
          m_buttons(kButtonRows[std::min<UINT>(style & MB_TYPEMASK, std::size(kButtonRows) - 1)]) {}
    ~CMessageBox() {
        DeleteObject(m_font);
        DeleteObject(m_boldFont);
    }
    CMessageBox(const CMessageBox&) = delete;
    CMessageBox& operator=(const CMessageBox&) = delete;

    int Show(HWND owner) {
        m_screen = ScreenRectangle(owner);
        // A dialog template without controls: they are placed once the text has been measured.
        struct {
            DLGTEMPLATE head;
            WORD menu, windowClass, title;
        } dialog = {};
        dialog.head.style = WS_POPUP | WS_BORDER | DS_NOIDLEMSG;
        const INT_PTR result =
            DialogBoxIndirectParamW(OwnModule(), &dialog.head, owner ? GetAncestor(owner, GA_ROOT) : nullptr,
                                    OnMessage, reinterpret_cast<LPARAM>(this));
        return result > 0 ? static_cast<int>(result) : 0;
    }

  private:
    static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(window, DWLP_USER, lParam);
            reinterpret_cast<CMessageBox*>(lParam)->OnInitDialog(window);
            return FALSE;
        }
        auto* self = reinterpret_cast<CMessageBox*>(GetWindowLongPtrW(window, DWLP_USER));
        if (!self) return FALSE;
        switch (message) {
            case WM_COMMAND:
                if (HIWORD(wParam) == BN_CLICKED) self->OnCommand(window, LOWORD(wParam));
                return TRUE;
            case WM_PAINT:
                self->OnPaint(window);
                return TRUE;
            case WM_ERASEBKGND:
                return TRUE;
            case WM_CTLCOLORDLG:
            case WM_CTLCOLORSTATIC:
                return reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH));
            case WM_NCHITTEST:
                return OnHitTest(window, lParam);
            default:
                return FALSE;
        }
    }

    void OnInitDialog(HWND window) {
        const LCID locale = DefaultLocale();
        m_font = CreateShellFont(locale, kTextPixels, false);
        m_boldFont = CreateShellFont(locale, kTextPixels, true);
        SetWindowTextW(window, m_caption.c_str());

        HDC screen = GetDC(window);
        const int textLeft = kMargin + (IconName(m_style) ? kIconSize + kMargin : 0);
        RECT text = {0, 0, kWidest - 2 - textLeft - kMargin, 0};
        SelectObject(screen, m_font);
        DrawTextW(screen, m_text.c_str(), -1, &text,
                  DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
        int buttonWidth = kButtonWidth;
        for (int i = 0; i < m_buttons.count; ++i)
            buttonWidth = std::max(
                buttonWidth, TextWidth(screen, ButtonCaption(m_buttons.ids[i], locale)) + 2 * kCaptionMargin);
        SelectObject(screen, m_boldFont);
        const int titleWidth = TextWidth(screen, m_caption.c_str()) + 2 * kMargin;
        SelectObject(screen, GetStockObject(SYSTEM_FONT));
        ReleaseDC(window, screen);

        const int roomForButtons = kWidest - 2 - 2 * kMargin - (m_buttons.count - 1) * kButtonGap;
        buttonWidth = std::min(buttonWidth, roomForButtons / m_buttons.count);
        const int rowWidth = m_buttons.count * buttonWidth + (m_buttons.count - 1) * kButtonGap;
        int width = std::max<int>(textLeft + text.right + kMargin, rowWidth + 2 * kMargin);
        width = std::clamp(std::max(width, titleWidth), kNarrowest, kWidest - 2);
        const int highestText =
            m_screen.bottom - m_screen.top - 2 - kTitleHeight - 3 * kMargin - kButtonHeight;
        const int textHeight = std::min<int>(text.bottom, highestText);
        const int bodyHeight = std::max(textHeight, IconName(m_style) ? kIconSize : 0);

        const int bodyTop = kTitleHeight + kMargin;
        if (const wchar_t* icon = IconName(m_style)) {
            HWND picture =
                AddControl(window, L"STATIC", L"", SS_ICON, kIconId, kMargin, bodyTop, kIconSize, kIconSize);
            SendMessageW(picture, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, icon)), 0);
        }
        AddControl(window, L"STATIC", m_text.c_str(), SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL, kTextId,
                   textLeft, bodyTop + (bodyHeight - textHeight) / 2, width - textLeft - kMargin, textHeight);
        const int buttonTop = bodyTop + bodyHeight + kMargin;
        AddButtons(window, locale, (width - rowWidth) / 2, buttonTop, buttonWidth);

        const int outerWidth = width + 2, outerHeight = buttonTop + kButtonHeight + kMargin + 2;
        SetWindowPos(window, m_style & (MB_TOPMOST | MB_SYSTEMMODAL) ? HWND_TOPMOST : HWND_TOP,
                     (m_screen.left + m_screen.right - outerWidth) / 2,
                     (m_screen.top + m_screen.bottom - outerHeight) / 2, outerWidth, outerHeight, 0);
        ShowWindow(window, SW_SHOW);
        if (m_style & MB_SETFOREGROUND) SetForegroundWindow(window);
        MessageBeep(m_style & MB_ICONMASK);
    }

    void AddButtons(HWND window, LCID locale, int left, int top, int width) {
        const int chosen = std::min<int>((m_style & MB_DEFMASK) >> 8, m_buttons.count - 1);
        for (int i = 0; i < m_buttons.count; ++i) {
            const int id = m_buttons.ids[i];
            HWND button = AddControl(window, L"BUTTON", ButtonCaption(id, locale),
                                     WS_TABSTOP | (i == chosen ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), id,
                                     left + i * (width + kButtonGap), top, width, kButtonHeight);
            if (i != chosen) continue;
            SendMessageW(window, DM_SETDEFID, static_cast<WPARAM>(id), 0);
            SetFocus(button);
        }
    }

    HWND AddControl(HWND window, const wchar_t* windowClass, const wchar_t* text, DWORD style, int id, int x,
                    int y, int width, int height) {
        HWND control =
            CreateWindowExW(0, windowClass, text, WS_CHILD | WS_VISIBLE | style, x, y, width, height, window,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), OwnModule(), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
        return control;
    }

    static int TextWidth(HDC screen, const wchar_t* text) {
        SIZE size = {};
        GetTextExtentPoint32W(screen, text, lstrlenW(text), &size);
        return size.cx;
    }

    // Escape arrives as IDCANCEL: it presses Cancel, or a lone OK, and does nothing without either.
    void OnCommand(HWND window, int id) {
        const int* end = m_buttons.ids + m_buttons.count;
        if (id == IDCANCEL && m_buttons.count == 1) id = m_buttons.ids[0];
        if (std::find(m_buttons.ids, end, id) != end) EndDialog(window, id);
    }

    void OnPaint(HWND window) {
        PAINTSTRUCT paint;
        HDC to = BeginPaint(window, &paint);
        RECT area;
        GetClientRect(window, &area);
        RECT title = area;
        title.bottom = area.top = kTitleHeight;
        FillColour(to, area, kBodyColour);
        DrawTitle(to, title, kMargin, kMargin, m_caption.c_str(), m_boldFont);
        EndPaint(window, &paint);
    }

    // The title strip moves the box.
    static INT_PTR OnHitTest(HWND window, LPARAM position) {
        POINT point = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
        ScreenToClient(window, &point);
        if (point.y >= kTitleHeight) return FALSE;
        SetWindowLongPtrW(window, DWLP_MSGRESULT, HTCAPTION);
        return TRUE;
    }

    const std::wstring m_text;
    const std::wstring m_caption;
    const UINT m_style;
    const ButtonRow& m_buttons;
    RECT m_screen = {};
    HFONT m_font = nullptr;
    HFONT m_boldFont = nullptr;
};

}  // namespace

extern "C" int WINAPI HandheldMessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT style) {
    if (owner && !IsWindow(owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    return CMessageBox(text, caption, style).Show(owner);
}
