// Which files of a folder the viewer shows, and in which order.  Portable.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace viewer {

enum class FileKind { other, picture, movie };

// By the name's extension, capitals or not.
FileKind KindOf(const std::wstring& name);

struct FolderFile {
    std::wstring name;
    uint64_t written;  // when it was last written; later is larger
};

// Capitals count as small letters, and a row of digits counts as a number: snap2.jpg comes before Snap10.jpg.
bool ComesBefore(const std::wstring& a, const std::wstring& b);

// Names of the pictures and movies, in order.
std::vector<std::wstring> Viewable(const std::vector<FolderFile>& files);

// The picture or movie written last, of several the last in order; empty when there is none.
std::wstring Newest(const std::vector<FolderFile>& files);

// The name before or after another in an ordered list.  The other need not be in the list: a picture that has
// been deleted still has neighbours.  Empty at either end.
std::wstring NameBefore(const std::vector<std::wstring>& names, const std::wstring& name);
std::wstring NameAfter(const std::vector<std::wstring>& names, const std::wstring& name);

// Place in the list, counted from 1; 0 when the name is not in it.
size_t PlaceOf(const std::vector<std::wstring>& names, const std::wstring& name);

}  // namespace viewer
