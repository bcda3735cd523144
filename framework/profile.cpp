#include "framework/profile.h"

#include "platform/ce.h"

#include <cwchar>

namespace {

// "Software\<key>\<section>", or empty without a key.
std::wstring SectionPath(const Profile& profile, const wchar_t* section) {
    const std::size_t start = profile.key.find_first_not_of(L'\\');
    if (start == std::wstring::npos) return {};
    return L"Software\\" + profile.key.substr(start) + L"\\" + section;
}

// An open section, or null.
class CSection {
  public:
    enum class Access { read, write };
    CSection(const Profile& profile, const wchar_t* section, Access access) {
        const std::wstring path = SectionPath(profile, section);
        if (path.empty()) return;
        const LONG error = access == Access::read
                               ? RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &m_key)
                               : RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE,
                                                 nullptr, &m_key, nullptr);
        if (error != ERROR_SUCCESS) m_key = nullptr;
    }
    ~CSection() {
        if (m_key) RegCloseKey(m_key);
    }
    CSection(const CSection&) = delete;
    CSection& operator=(const CSection&) = delete;

    // The size in bytes of a value that has this type and fits, or -1.
    int Read(const wchar_t* name, DWORD type, void* value, DWORD capacity) const {
        DWORD storedType = 0;
        DWORD size = capacity;
        auto* bytes = static_cast<BYTE*>(value);
        if (!m_key || RegQueryValueExW(m_key, name, nullptr, &storedType, bytes, &size) != ERROR_SUCCESS)
            return -1;
        return storedType == type ? static_cast<int>(size) : -1;
    }

    bool Write(const wchar_t* name, DWORD type, const void* value, std::size_t size) const {
        const auto* bytes = static_cast<const BYTE*>(value);
        return m_key &&
               RegSetValueExW(m_key, name, 0, type, bytes, static_cast<DWORD>(size)) == ERROR_SUCCESS;
    }

  private:
    HKEY m_key = nullptr;
};

}  // namespace

int ReadProfileInt(const Profile& profile, const wchar_t* section, const wchar_t* name, int otherwise) {
    int value = 0;
    const int size =
        CSection(profile, section, CSection::Access::read).Read(name, REG_DWORD, &value, sizeof value);
    return size == sizeof value ? value : otherwise;
}

std::wstring ReadProfileText(const Profile& profile, const wchar_t* section, const wchar_t* name,
                             const wchar_t* otherwise) {
    // A stored text need not end in a zero; the one place more ends every one.
    std::wstring text(kLongestProfileText + 2, L'\0');
    const DWORD capacity = (kLongestProfileText + 1) * sizeof(wchar_t);
    const int size =
        CSection(profile, section, CSection::Access::read).Read(name, REG_SZ, text.data(), capacity);
    if (size < 0) return otherwise;
    text.resize(static_cast<std::size_t>(size) / sizeof(wchar_t));
    text.resize(std::wcslen(text.c_str()));
    return text.size() <= kLongestProfileText ? text : otherwise;
}

bool WriteProfileInt(const Profile& profile, const wchar_t* section, const wchar_t* name, int value) {
    return CSection(profile, section, CSection::Access::write).Write(name, REG_DWORD, &value, sizeof value);
}

bool WriteProfileText(const Profile& profile, const wchar_t* section, const wchar_t* name,
                      const wchar_t* text) {
    const std::size_t length = std::wcslen(text);
    if (length > kLongestProfileText) return false;
    const std::size_t size = (length + 1) * sizeof(wchar_t);
    return CSection(profile, section, CSection::Access::write).Write(name, REG_SZ, text, size);
}
