#include "framework/window_links.h"

#include <algorithm>
#include <vector>

namespace {

struct WindowLink {
    HWND hwnd;
    CWindow* window;
};

// A program has a handful of windows at a time, so a plain search beats anything cleverer.
std::vector<WindowLink> links;

std::vector<WindowLink>::iterator Find(HWND hwnd) {
    return std::find_if(links.begin(), links.end(),
                        [hwnd](const WindowLink& link) { return link.hwnd == hwnd; });
}

}  // namespace

void LinkWindow(HWND hwnd, CWindow& window) {
    links.push_back({hwnd, &window});
}

void UnlinkWindow(HWND hwnd) {
    const auto link = Find(hwnd);
    if (link != links.end()) links.erase(link);
}

CWindow* WindowOf(HWND hwnd) {
    const auto link = Find(hwnd);
    return link != links.end() ? link->window : nullptr;
}
