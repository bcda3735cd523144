#include "desktop/pictures.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

fs::path PictureFolder(const CameraProcess& camera) {
    return camera.Store() / "My Documents" / "My Pictures";
}

fs::path PicturePath(const CameraProcess& camera, int number) {
    char name[32];
    std::snprintf(name, sizeof(name), "snap%.4d.jpg", number);
    return PictureFolder(camera) / name;
}

std::vector<std::string> FilesIn(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folder, missing))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteBytes(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

bool IsWholePicture(const fs::path& file) {
    const std::string bytes = ReadBytes(file);
    return bytes.size() > 4 && bytes.compare(0, 2, "\xFF\xD8") == 0 &&
           bytes.compare(bytes.size() - 2, 2, "\xFF\xD9") == 0;
}
