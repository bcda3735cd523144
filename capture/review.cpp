#include "capture/review.h"

#include "capture/file_names.h"
#include "platform/ce.h"
#include "settings/counters.h"

// After the numbers began anew the one before is 0, which names no picture: the last one then stays in the store.
// (ReviewOfTheLastNumber.DeletingGoesToNumberZero)
void DeleteLastPicture(CameraSettings& settings, const Profile& profile, ScreenState& screen) {
    const int32_t number = PreviousNumber(settings.jpgNo);
    DeleteFileW(PicturePath(settings, number).c_str());
    StorePictureNumber(settings, profile, number);
    if (screen.picturesTaken != 0) --screen.picturesTaken;
}
