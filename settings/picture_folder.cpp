#include "settings/picture_folder.h"

#include "platform/ce.h"

void EnsurePictureFolder() {
    static constexpr wchar_t kFolder[] = L"\\My Documents\\My Pictures";  // a search refuses the trailing backslash
    CeFindData found;
    const HANDLE search = CeFindFirstFile(kFolder, found);
    if (search == INVALID_HANDLE_VALUE) CreateDirectoryW(kFolder, nullptr);
    // Closed as a plain handle, and also when nothing was found: the system lets both pass without effect.
    // Only a leak checker would notice.  (CameraScreen.MakesThePictureFolder)
    CloseHandle(search);
}
