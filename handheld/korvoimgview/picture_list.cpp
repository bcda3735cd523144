#include "handheld/korvoimgview/picture_list.h"

#include <algorithm>

namespace viewer {
namespace {

struct Extension {
    const wchar_t* text;
    FileKind kind;
};
constexpr Extension kExtensions[] = {
    {L".jpg", FileKind::picture}, {L".jpeg", FileKind::picture}, {L".png", FileKind::picture},
    {L".bmp", FileKind::picture}, {L".avi", FileKind::movie},
};

wchar_t Small(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

std::wstring SmallLetters(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(), Small);
    return text;
}

// A row of digits that starts at `at`, without leading zeros; `at` moves past it.
std::wstring TakeNumber(const std::wstring& text, size_t& at) {
    while (at < text.size() && text[at] == L'0') ++at;
    const size_t first = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    return text.substr(first, at - first);
}

// Below, equal to or above 0, as for strcmp.
int Compare(const std::wstring& a, const std::wstring& b) {
    size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (IsDigit(a[i]) && IsDigit(b[j])) {
            const std::wstring m = TakeNumber(a, i), n = TakeNumber(b, j);
            if (m.size() != n.size()) return m.size() < n.size() ? -1 : 1;
            if (const int order = m.compare(n)) return order;
        } else if (a[i] != b[j]) {
            return a[i] < b[j] ? -1 : 1;
        } else {
            ++i;
            ++j;
        }
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

}  // namespace

FileKind KindOf(const std::wstring& name) {
    const size_t dot = name.rfind(L'.');
    if (dot == std::wstring::npos) return FileKind::other;
    const std::wstring extension = SmallLetters(name.substr(dot));
    for (const Extension& known : kExtensions)
        if (extension == known.text) return known.kind;
    return FileKind::other;
}

bool ComesBefore(const std::wstring& a, const std::wstring& b) {
    const std::wstring smallA = SmallLetters(a), smallB = SmallLetters(b);
    const int order = Compare(smallA, smallB);
    // snap1.jpg and snap01.jpg are two files and need an order too.
    return order != 0 ? order < 0 : smallA < smallB;
}

std::vector<std::wstring> Viewable(const std::vector<FolderFile>& files) {
    std::vector<std::wstring> names;
    for (const FolderFile& file : files)
        if (KindOf(file.name) != FileKind::other) names.push_back(file.name);
    std::sort(names.begin(), names.end(), ComesBefore);
    return names;
}

std::wstring Newest(const std::vector<FolderFile>& files) {
    const FolderFile* newest = nullptr;
    for (const FolderFile& file : files) {
        if (KindOf(file.name) == FileKind::other) continue;
        if (!newest || file.written > newest->written ||
            (file.written == newest->written && ComesBefore(newest->name, file.name)))
            newest = &file;
    }
    return newest ? newest->name : std::wstring();
}

std::wstring NameBefore(const std::vector<std::wstring>& names, const std::wstring& name) {
    const auto at = std::lower_bound(names.begin(), names.end(), name, ComesBefore);
    return at == names.begin() ? std::wstring() : *(at - 1);
}

std::wstring NameAfter(const std::vector<std::wstring>& names, const std::wstring& name) {
    const auto at = std::upper_bound(names.begin(), names.end(), name, ComesBefore);
    return at == names.end() ? std::wstring() : *at;
}

size_t PlaceOf(const std::vector<std::wstring>& names, const std::wstring& name) {
    const auto at = std::lower_bound(names.begin(), names.end(), name, ComesBefore);
    if (at == names.end() || ComesBefore(name, *at)) return 0;
    return static_cast<size_t>(at - names.begin()) + 1;
}

}  // namespace viewer
