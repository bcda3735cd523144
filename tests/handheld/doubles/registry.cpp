#include "handheld/doubles/registry.h"

#include <windows.h>

#include <cstring>

namespace {

std::vector<RegistryValue> g_values;
uint32_t g_openKeys;

wchar_t Lowered(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + 32) : character;
}

bool SameName(const std::wstring& a, const std::wstring& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (Lowered(a[i]) != Lowered(b[i])) return false;
    return true;
}

RegistryValue* Find(const std::wstring& key, const std::wstring& name) {
    for (RegistryValue& value : g_values)
        if (SameName(value.key, key) && SameName(value.name, name)) return &value;
    return nullptr;
}

// An open key is its path.
HKEY Opened(const wchar_t* path) {
    ++g_openKeys;
    return reinterpret_cast<HKEY>(new std::wstring(path));
}

const std::wstring& PathOf(HKEY key) {
    return *reinterpret_cast<const std::wstring*>(key);
}

}  // namespace

std::vector<RegistryValue>& RegistryValues() {
    return g_values;
}

const RegistryValue* FindRegistryValue(const std::wstring& key, const std::wstring& name) {
    return Find(key, name);
}

uint32_t OpenRegistryKeys() {
    return g_openKeys;
}

extern "C" {

LONG WINAPI RegOpenKeyExW(HKEY root, LPCWSTR path, DWORD, REGSAM, PHKEY key) {
    if (root != HKEY_CURRENT_USER || path[0] == L'\\') return ERROR_INVALID_PARAMETER;
    for (const RegistryValue& value : g_values) {
        if (!SameName(value.key, path)) continue;
        *key = Opened(path);
        return ERROR_SUCCESS;
    }
    return ERROR_FILE_NOT_FOUND;
}

LONG WINAPI RegCreateKeyExW(HKEY root, LPCWSTR path, DWORD, LPWSTR, DWORD, REGSAM, LPSECURITY_ATTRIBUTES,
                            PHKEY key, LPDWORD) {
    if (root != HKEY_CURRENT_USER || path[0] == L'\\') return ERROR_INVALID_PARAMETER;
    *key = Opened(path);
    return ERROR_SUCCESS;
}

LONG WINAPI RegCloseKey(HKEY key) {
    --g_openKeys;
    delete reinterpret_cast<std::wstring*>(key);
    return ERROR_SUCCESS;
}

LONG WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
    const RegistryValue* const value = Find(PathOf(key), name);
    if (value == nullptr) return ERROR_FILE_NOT_FOUND;
    const DWORD room = *size;
    *type = value->type;
    *size = static_cast<DWORD>(value->bytes.size());
    if (room < value->bytes.size()) return ERROR_MORE_DATA;
    std::memcpy(data, value->bytes.data(), value->bytes.size());
    return ERROR_SUCCESS;
}

LONG WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size) {
    RegistryValue* value = Find(PathOf(key), name);
    if (value == nullptr) value = &g_values.emplace_back(RegistryValue{PathOf(key), name, 0, {}});
    value->type = type;
    value->bytes.assign(data, data + size);
    return ERROR_SUCCESS;
}
}
