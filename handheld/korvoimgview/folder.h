// A folder of the desktop as the viewer finds it.
#pragma once
#include <string>
#include <vector>

#include "handheld/korvoimgview/picture_list.h"

namespace viewer {

// A folder and a file in it.  The folder ends without a backslash; the name may be empty.
struct FilePlace {
    std::wstring folder, name;

    std::wstring Path() const { return folder + L'\\' + name; }
};

// Where a path of the handheld leads: into its object store, or anywhere when it begins with a drive or with
// two backslashes.  A bare name, and a path that the store cannot hold, lie in the picture folder.
FilePlace PlaceOfPath(const std::wstring& path);

// The picture folder, "\My Documents\My Pictures".
std::wstring PictureFolder();

// Files only; nothing when there is no such folder.
std::vector<FolderFile> FilesIn(const std::wstring& folder);

}  // namespace viewer
