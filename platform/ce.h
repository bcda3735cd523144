// The Windows CE API as the program sees it: the desktop's headers, and what CE declares otherwise.
// Nothing but declarations; every name here is a call or a record of the handheld.
#pragma once
#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <cstdint>

// The handheld's find record has no reserved words: 560 bytes, the name at offset 40.
// (The desktop's is 592 bytes with the name at 44.)  The core library fills this one.
struct CeFindData {
    DWORD attributes;
    FILETIME creationTime;
    FILETIME lastAccessTime;
    FILETIME lastWriteTime;
    DWORD fileSizeHigh;
    DWORD fileSizeLow;
    DWORD objectId;
    WCHAR fileName[MAX_PATH];
};
static_assert(sizeof(CeFindData) == 560 && offsetof(CeFindData, fileName) == 40);

inline HANDLE CeFindFirstFile(const WCHAR* pattern, CeFindData& data) {
    return FindFirstFileW(pattern, reinterpret_cast<WIN32_FIND_DATAW*>(&data));
}
inline bool CeFindNextFile(HANDLE search, CeFindData& data) {
    return FindNextFileW(search, reinterpret_cast<WIN32_FIND_DATAW*>(&data)) != 0;
}

extern "C" {

// CE looks up exports by wide names.
FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name);

// Copies a bitmap, leaving out one colour.
BOOL WINAPI TransparentImage(HDC to, LONG toX, LONG toY, LONG toWidth, LONG toHeight, HANDLE from, LONG fromX,
                             LONG fromY, LONG fromWidth, LONG fromHeight, COLORREF transparent);

// CE has the wide one only, under the plain name.
#undef ImageList_LoadImage
HIMAGELIST WINAPI ImageList_LoadImage(HINSTANCE module, LPCWSTR name, int width, int grow, COLORREF mask, UINT type,
                                      UINT flags);

// --- Shell library ("aygshell.dll") ---

struct SHMENUBARINFO {
    DWORD cbSize;
    HWND hwndParent;
    DWORD dwFlags;
    UINT nToolBarId;  // RCDATA resource: menu id, item count, then the buttons
    HINSTANCE hInstRes;
    int nBmpId;
    int cBmpImages;
    HWND hwndMB;  // out: the menu bar
};
BOOL WINAPI SHCreateMenuBar(SHMENUBARINFO* info);

struct SHINITDLGINFO {
    DWORD dwMask;
    HWND hDlg;
    DWORD dwFlags;
};
BOOL WINAPI SHInitDialog(SHINITDLGINFO* info);
}

inline constexpr DWORD SHIDIM_FLAGS = 0x0001;
inline constexpr DWORD SHIDIF_DONEBUTTON = 0x0001;
inline constexpr DWORD SHIDIF_SIZEDLG = 0x0002;
inline constexpr DWORD SHIDIF_SIZEDLGFULLSCREEN = 0x0004;
inline constexpr DWORD SHIDIF_SIPDOWN = 0x0008;

// Messages of a menu bar window.
inline constexpr UINT SHCMBM_GETSUBMENU = WM_USER + 401;  // lParam: button id; result: its pop-up menu
inline constexpr UINT SHCMBM_GETMENU = WM_USER + 402;     // result: the whole menu
