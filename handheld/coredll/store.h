// The object store: the handheld's files, kept under one private folder of the desktop.
#pragma once
#include <windows.h>

#include <optional>
#include <string>

namespace handheld {

// Whether a path names something in the store: it begins with one backslash, not with two.
bool IsStorePath(const wchar_t* path);

// The desktop folder that is the store's root, without a trailing backslash.  Read once from HANDHELD_ROOT;
// the folder and the folders that every handheld has ("\My Documents", "\Windows") are made on the first
// call.
const std::wstring& StoreRoot();

// A store path's parts joined by single backslashes, with "." and ".." resolved and no way above the root:
// "\a\..\..\b\" gives "\b", the root gives "".  Nothing when a part could reach outside the store or into a
// hidden stream of a file (a colon), or is a device of the desktop ("NUL", "com1.txt").
std::optional<std::wstring> NormaliseStorePath(const wchar_t* path);

// The desktop's path of any path a program gives: store paths below the root, others unchanged.
// Nothing, with the last error set, for a name that the store cannot hold and for a null path.
std::optional<std::wstring> DesktopPath(const wchar_t* path);

}  // namespace handheld
