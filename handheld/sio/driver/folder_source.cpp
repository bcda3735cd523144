#include "handheld/sio/driver/folder_source.h"

#include <windows.h>

#include <algorithm>
#include <cwctype>

#include "handheld/sio/card/fit.h"
#include "handheld/sio/card/test_card.h"
#include "handheld/sio/driver/picture_file.h"
#include "handheld/sio/driver/text.h"

namespace sio {
namespace {

constexpr int kFramesPerPicture = 30;

bool isPictureName(std::wstring name) {
    std::transform(name.begin(), name.end(), name.begin(), [](wchar_t c) { return std::towlower(c); });
    for (const std::wstring ending : {L".jpg", L".jpeg", L".png"}) {
        if (name.size() > ending.size() &&
            name.compare(name.size() - ending.size(), ending.size(), ending) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<std::wstring> CFolderSource::listNames() const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW entry;
    HANDLE search = FindFirstFileW((m_folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const bool isFile = !(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
        if (isFile && isPictureName(entry.cFileName)) names.emplace_back(entry.cFileName);
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

// Goes on to the next file that can be decoded, which may be the one already shown.
void CFolderSource::showNext() {
    std::vector<std::wstring> names = listNames();
    std::rotate(names.begin(), std::upper_bound(names.begin(), names.end(), m_name), names.end());
    m_view = {};
    for (const std::wstring& name : names) {
        if (name == m_name && !m_picture.empty()) return;
        m_name = name;
        if (readPictureFile(m_folder + L'\\' + name, m_picture)) return;
        m_picture = {};
    }
    m_picture = {};
}

void CFolderSource::take(const View& view, uint32_t, Picture& into) {
    if (m_framesLeft == 0) {
        showNext();
        m_framesLeft = kFramesPerPicture;
    }
    --m_framesLeft;
    if (m_picture.empty()) {
        drawTestCard("NO PICTURES IN FOLDER", toUtf8(m_folder), view, into);
        return;
    }
    if (!(view == m_view)) {
        fitToView(m_picture, view, m_fitted);
        m_view = view;
    }
    into = m_fitted;
}

}  // namespace sio
