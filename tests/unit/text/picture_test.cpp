#include <gtest/gtest.h>
#include <windows.h>

#include "resources/resource.h"

namespace {

struct PictureRow {
    int id;
    int width;
    int height;
};

// Where the program relies on a size; the lettering and the overlays are drawn in whatever size they have.
constexpr PictureRow kSized[] = {
    {IDB_STRIP, 240, 108},
    {IDB_STRIP_VIDEO, 240, 108},
    {IDB_STRIP_STILL_SMALL, 240, 108},
    {IDB_STRIP_STILL_LARGE, 240, 108},
    {IDB_SHUTTER, 49, 49},
    {IDB_SHUTTER_PRESSED, 49, 49},
    {IDB_MENU, 30, 30},
    {IDB_MENU_PRESSED, 30, 30},
    {IDB_PLAY, 30, 30},
    {IDB_PLAY_PRESSED, 30, 30},
    {IDB_ZOOM_OUT, 32, 31},
    {IDB_ZOOM_OUT_PRESSED, 32, 31},
    {IDB_ZOOM_IN, 32, 31},
    {IDB_ZOOM_IN_PRESSED, 32, 31},
    {IDB_BACKGROUND, 240, 180},
};

constexpr int kAnySize[] = {
    IDB_EUROPEAN_SHUTTER_STILL,
    IDB_EUROPEAN_SHUTTER_VIDEO,
    IDB_EUROPEAN_MENU_STILL,
    IDB_EUROPEAN_MENU_VIDEO,
    IDB_EUROPEAN_PLAY_STILL,
    IDB_EUROPEAN_PLAY_VIDEO,
    IDB_EUROPEAN_ZOOM_OUT_STILL,
    IDB_EUROPEAN_ZOOM_OUT_VIDEO,
    IDB_EUROPEAN_ZOOM_IN_STILL,
    IDB_EUROPEAN_ZOOM_IN_VIDEO,
    IDB_OTHER_SHUTTER_STILL,
    IDB_OTHER_SHUTTER_VIDEO,
    IDB_OTHER_MENU_STILL,
    IDB_OTHER_MENU_VIDEO,
    IDB_OTHER_PLAY_STILL,
    IDB_OTHER_PLAY_VIDEO,
    IDB_OTHER_ZOOM_OUT_STILL,
    IDB_OTHER_ZOOM_OUT_VIDEO,
    IDB_OTHER_ZOOM_IN_STILL,
    IDB_OTHER_ZOOM_IN_VIDEO,
    IDB_CENTRE_MARK,
    IDB_CARD_FRAME_LARGE,
    IDB_CARD_FRAME_SMALL,
    IDB_MODE_STILL,
    IDB_MODE_VIDEO,
    IDB_WHITE_BALANCE + 1,
    IDB_WHITE_BALANCE + 2,
    IDB_WHITE_BALANCE + 3,
    IDB_COLOR + 1,
    IDB_COLOR + 2,
    IDB_COUNTDOWN,
    IDB_COUNTDOWN + 1,
    IDB_COUNTDOWN + 2,
    IDB_COUNTDOWN + 3,
    IDB_COUNTDOWN + 4,
    IDB_COUNTDOWN + 5,
    IDB_COUNTDOWN + 6,
    IDB_COUNTDOWN + 7,
    IDB_COUNTDOWN + 8,
    IDB_COUNTDOWN + 9,
    IDB_COUNTDOWN + 10,
    IDB_SELF_TIMER_IDLE,
    IDB_RECORDING_IDLE,
    IDB_RECORDING,
    IDB_RECORDING + 1,
    IDB_RECORDING + 2,
    IDB_ZOOM,
    IDB_ZOOM_LEVEL,
    IDB_MEMORY_CARD,
    IDB_FOLDER,
    IDB_ABOUT,
};

BITMAP loaded(int id) {
    BITMAP result = {};
    const HANDLE bitmap =
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    if (bitmap) {
        GetObjectW(bitmap, sizeof result, &result);
        DeleteObject(bitmap);
    }
    return result;
}

}  // namespace

TEST(Pictures, SizedOnesHaveTheirSize) {
    for (const PictureRow& row : kSized) {
        const BITMAP bitmap = loaded(row.id);
        EXPECT_EQ(row.width, bitmap.bmWidth) << row.id;
        EXPECT_EQ(row.height, bitmap.bmHeight) << row.id;
    }
}

TEST(Pictures, AllOthersExist) {
    for (const int id : kAnySize) EXPECT_GT(loaded(id).bmWidth, 0) << id;
}

TEST(Icons, Exist) {
    for (const int id : {IDI_CAMERA, IDI_METERING, IDI_COLOR, IDI_RESOLUTION, IDI_WHITE_BALANCE, IDI_QUALITY})
        EXPECT_NE(nullptr, LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id))) << id;
}
