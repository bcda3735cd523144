#include "settings/about_dlg.h"

#include <algorithm>

#include "resources/resource.h"
#include "settings/about_time.h"
#include "settings/help.h"

namespace {

constexpr uint32_t kTextProduct = 50066;
constexpr uint32_t kTextComponent = 50068;
constexpr uint32_t kTextVersion = 50086;
constexpr uint32_t kTextCameraProgram = 50069;
constexpr uint32_t kTextPictureDecoder = 50070;
constexpr uint32_t kTextCameraDriver = 50071;
constexpr uint32_t kTextCameraFirmware = 50072;

constexpr size_t kRowCharacters = 40;

// What the camera says, which is nothing when it does not answer.
std::wstring AskVersion(CameraDevice& device) {
    char16_t answer[kVersionCharacters] = {};
    GetVersion(device, answer);
    return std::wstring(answer, std::find(answer, answer + kVersionCharacters, u'\0'));
}

void InsertColumn(HWND list, int column, int width, const wchar_t* heading) {
    LVCOLUMNW record = {};
    record.mask = LVCF_TEXT | LVCF_WIDTH;
    record.cx = width;
    record.pszText = const_cast<wchar_t*>(heading);
    SendMessageW(list, LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&record));
}

void SetCell(HWND list, UINT message, int row, int column, std::wstring text) {
    text.resize(std::min(text.size(), kRowCharacters));
    LVITEMW record = {};
    record.mask = LVIF_TEXT;
    record.iItem = row;
    record.iSubItem = column;
    record.pszText = text.data();
    SendMessageW(list, message, 0, reinterpret_cast<LPARAM>(&record));
}

UtcTime Now() {
    SYSTEMTIME now;
    GetSystemTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wDayOfWeek, now.wHour, now.wMinute, now.wSecond};
}

}  // namespace

CAboutDlg::CAboutDlg(const TextLookup& texts, CameraDevice& device)
    : CDialog(IDD_ABOUT, Placement::screenWithButton), m_texts(texts), m_device(device) {}

Reply CAboutDlg::OnMessage(const Message& message) {
    using On = HandlersOf<CAboutDlg>;
    static constexpr MessageRow rows[] = {
        On::message<WM_HELP, &CAboutDlg::OnHelp>,
        On::message<WM_DESTROY, &CAboutDlg::OnDestroy>,
    };
    return Dispatch<rows, CDialog>(*this, message);
}

bool CAboutDlg::Exchange(ExchangeDirection direction) {
    using Data = MembersOf<CAboutDlg>;
    static constexpr ExchangeRow rows[] = {Data::text<IDC_ABOUT_TIME, &CAboutDlg::m_time>};
    return ExchangeAll<rows>(*this, direction);
}

bool CAboutDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowTextW(Control(IDC_ABOUT_TITLE), LookUpText(m_texts, kTextProduct));
    FillVersions(Control(IDC_ABOUT_VERSIONS));
    m_time = AboutTimeText(Now());
    UpdateControls();
    AlignTime();
    return true;
}

// The text begins with blanks, as wide as the font has them: its first word is to stand below the product's name.
// The blanks may lie behind the picture.
void CAboutDlg::AlignTime() {
    const HWND time = Control(IDC_ABOUT_TIME);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(time, WM_GETFONT, 0, 0));
    RECT blanks = {};
    const HDC screen = GetDC(time);
    const HGDIOBJ previous = SelectObject(screen, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    DrawTextW(screen, kAboutTimeBlanks, -1, &blanks, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(screen, previous);
    ReleaseDC(time, screen);

    RECT title, place;
    GetWindowRect(Control(IDC_ABOUT_TITLE), &title);
    GetWindowRect(time, &place);
    place.left = title.left - blanks.right;
    MapWindowPoints(nullptr, Hwnd(), reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(time, HWND_BOTTOM, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOACTIVATE);
}

void CAboutDlg::FillVersions(HWND list) {
    RECT client;
    GetClientRect(list, &client);
    const int third = client.right / 3;
    InsertColumn(list, 0, 2 * third, LookUpText(m_texts, kTextComponent));
    InsertColumn(list, 1, third, LookUpText(m_texts, kTextVersion));

    // The camera has one version for its driver and its firmware: both rows show it.
    // (About.DriverAndFirmwareShowOneVersion)
    const std::wstring camera = AskVersion(m_device);
    const struct {
        uint32_t name;
        std::wstring version;
    } rows[] = {{kTextCameraProgram, L"1.0.0"},
                {kTextPictureDecoder, L"0.2.1"},
                {kTextCameraDriver, camera},
                {kTextCameraFirmware, camera}};
    int row = 0;
    for (const auto& component : rows) {
        SetCell(list, LVM_INSERTITEMW, row, 0, LookUpText(m_texts, component.name));
        SetCell(list, LVM_SETITEMW, row, 1, component.version);
        ++row;
    }
}

Then CAboutDlg::OnHelp() {
    ShowHelp();
    return Then::defaultHandling;
}

// Not every system deletes the bitmap that a control's template named: taken from the control, it is ours to delete.
void CAboutDlg::OnDestroy() {
    const LRESULT picture = SendMessageW(Control(IDC_ABOUT_PICTURE), STM_SETIMAGE, IMAGE_BITMAP, 0);
    DeleteObject(reinterpret_cast<HGDIOBJ>(picture));
}
