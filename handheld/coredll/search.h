// A file search under way.
#pragma once
#include <windows.h>

namespace handheld {

struct Search {
    explicit Search(HANDLE desktopHandle) : handle(desktopHandle) {}
    ~Search();
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    const HANDLE handle;  // the desktop's, closed with this record
};

}  // namespace handheld
