// Where the handheld's files are on the desktop: the object store is one private folder.
#pragma once
#include <optional>
#include <string>

namespace handheld {

// The store's folder without a trailing backslash: HANDHELD_ROOT, or else "zel-camera\store" among the user's
// local application data (below ~/.local/share under Wine). It need not exist.
std::wstring StoreRoot();

// Whether a path names something in the store: it begins with one backslash, not with two.
bool IsStorePath(const std::wstring& path);

// A store path's parts, each after one backslash, with "." and ".." resolved and no way above the root:
// "\a\..\..\b\" gives "\b", the root gives "". Nothing when a part has a colon, which would name a drive or a
// hidden stream.
std::optional<std::wstring> NormaliseStorePath(const std::wstring& path);

// The desktop's path of something in the store. The desktop finds names in any case of letters by itself.
// Nothing for a path that is not in the store or cannot be.
std::optional<std::wstring> StoreToDesktop(const std::wstring& path);

}  // namespace handheld
