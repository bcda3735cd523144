#include "desktop/program_bitmap.h"

#include <windows.h>

#include "desktop/camera_process.h"

namespace {

HMODULE Program() {
    static const HMODULE program =
        LoadLibraryExW((CameraProcess::BuildFolder() / "zelcamera.exe").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    return program;
}

}  // namespace

PixelPicture ProgramBitmap(unsigned id) {
    PixelPicture picture;
    const auto bitmap = static_cast<HBITMAP>(
        LoadImageW(Program(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    BITMAP size = {};
    if (bitmap == nullptr || GetObjectW(bitmap, sizeof(size), &size) == 0) return picture;
    picture.width = size.bmWidth;
    picture.height = size.bmHeight;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.bmWidth;
    info.bmiHeader.biHeight = -size.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::vector<DWORD> pixels(static_cast<size_t>(size.bmWidth) * size.bmHeight);
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, bitmap, 0, size.bmHeight, pixels.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    DeleteObject(bitmap);
    for (const DWORD pixel : pixels)
        for (const int shift : {0, 8, 16}) picture.pixels.push_back(static_cast<uint8_t>(pixel >> shift));
    return picture;
}

size_t ProgramSoundBytes(const wchar_t* name) {
    const HRSRC sound = FindResourceW(Program(), name, L"WAVE");
    return sound != nullptr ? SizeofResource(Program(), sound) : 0;
}
