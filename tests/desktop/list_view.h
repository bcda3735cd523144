// What a list view in another process holds.
#pragma once
#include <windows.h>

#include <string>

std::wstring ListCell(HWND list, int row, int column);
std::wstring ListHeading(HWND list, int column);

// The width that a text takes in the list's font, pixels.
int ListTextWidth(HWND list, const std::wstring& text);
