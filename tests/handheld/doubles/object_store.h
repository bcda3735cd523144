// The handheld's object store: files and folders in memory, free room as the store fake says.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

struct StoredFile {
    std::wstring path;
    std::vector<uint8_t> bytes;
};

std::vector<StoredFile>& StoredFiles();
std::vector<std::wstring>& StoredFolders();
const StoredFile* FindStoredFile(const std::wstring& path);
