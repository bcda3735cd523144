// A property page's dialog template, old or extended form.
#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace handheld {

struct PageTemplate {
    std::vector<BYTE> bytes;  // the template with the styles of a child: no frame, not yet visible
    std::wstring caption;
};

// Nothing when the bytes end before the caption does.
std::optional<PageTemplate> ReadPageTemplate(const void* data, size_t size);

}  // namespace handheld
