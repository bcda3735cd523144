#include "handheld/companion/command_line.h"

#include <algorithm>

namespace handheld {

std::wstring PathArgument(const std::wstring& commandLine) {
    const auto blank = [](wchar_t c) { return c == L' ' || c == L'\t'; };
    size_t first = 0, end = commandLine.size();
    while (first < end && blank(commandLine[first])) ++first;
    while (end > first && blank(commandLine[end - 1])) --end;
    if (first < end && commandLine[first] == L'"') {
        ++first;
        end = std::min(commandLine.find(L'"', first), end);
    }
    return commandLine.substr(first, end - first);
}

}  // namespace handheld
