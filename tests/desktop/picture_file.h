// Picture files, read and written by the desktop's own codecs and none of this tree's.
#pragma once
#include <cstdint>
#include <filesystem>
#include <vector>

struct PixelPicture {
    int width = 0, height = 0;  // 0: there is no picture
    std::vector<uint8_t> pixels;  // B, G, R, top row first, rows without padding

    const uint8_t* At(int x, int y) const { return &pixels[(static_cast<size_t>(y) * width + x) * 3]; }
};

// Empty when the file is no picture.
PixelPicture ReadPicture(const std::filesystem::path& path);

// As PNG, exact to the pixel.
bool WritePicture(const std::filesystem::path& path, const PixelPicture& picture);
