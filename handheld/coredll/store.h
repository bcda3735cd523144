// The object store as the core library's calls see it: any path a program gives, as the desktop's path.
#pragma once
#include <windows.h>

#include <optional>
#include <string>

namespace handheld {

// Whether a path, which may be null, names something in the store.
bool IsInStore(const wchar_t* path);

// The desktop's path of any path: store paths below the store's root, others unchanged.  Nothing, with the
// last error set, for null and for a name that the store cannot hold (a colon, or a device of the desktop
// such as "NUL"). The first store path asked for makes the store and the folders that every handheld has.
std::optional<std::wstring> DesktopPath(const wchar_t* path);

}  // namespace handheld
