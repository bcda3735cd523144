#include "capture/review.h"

#include "capture/file_names.h"
#include "platform/ce.h"
#include "settings/counters.h"

void DeleteLastPicture(CameraSettings& settings, const Profile& profile, ScreenState& screen) {
    const int32_t number = PreviousNumber(settings.jpgNo);
    DeleteFileW(PicturePath(settings, number).c_str());
    StorePictureNumber(settings, profile, number);
    if (screen.picturesTaken != 0) --screen.picturesTaken;
}
