// The handheld's registry as far as the program goes: values below HKEY_CURRENT_USER, in memory.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

struct RegistryValue {
    std::wstring key;  // as it was opened; names do not distinguish case
    std::wstring name;
    uint32_t type;
    std::vector<uint8_t> bytes;
};

std::vector<RegistryValue>& RegistryValues();

// Null when there is none.
const RegistryValue* FindRegistryValue(const std::wstring& key, const std::wstring& name);

// What was opened and is not closed yet.
uint32_t OpenRegistryKeys();
