#include "capture/file_names.h"

#include <gtest/gtest.h>

namespace {

TEST(FileNames, PicturesAreFolderPrefixAndFourDigits) {
    CameraSettings settings;
    EXPECT_EQ(PicturePath(settings, 1), L"\\My Documents\\My Pictures\\snap0001.jpg");
    EXPECT_EQ(PicturePath(settings, 0), L"\\My Documents\\My Pictures\\snap0000.jpg");
    EXPECT_EQ(PicturePath(settings, 9999), L"\\My Documents\\My Pictures\\snap9999.jpg");
    EXPECT_EQ(PicturePath(settings, 12345), L"\\My Documents\\My Pictures\\snap12345.jpg");
    EXPECT_EQ(PicturePath(settings, -1), L"\\My Documents\\My Pictures\\snap-0001.jpg");
    EXPECT_EQ(PicturePath(settings, INT32_MIN), L"\\My Documents\\My Pictures\\snap-2147483648.jpg");
    settings.filenamePrefix = L"";
    settings.saveFolder = L"\\";
    EXPECT_EQ(PicturePath(settings, 10), L"\\0010.jpg");
}

TEST(FileNames, MoviesAreFolderMAndFourDigits) {
    const CameraSettings settings;
    EXPECT_EQ(MoviePath(settings, 9999), L"\\My Documents\\My Pictures\\m9999.avi");
    EXPECT_EQ(MoviePath(settings, 7), L"\\My Documents\\My Pictures\\m0007.avi");
}

TEST(FileNames, NumbersRunFromOneToNineThousand999) {
    EXPECT_EQ(NextNumber(1), 2);
    EXPECT_EQ(NextNumber(9998), 9999);
    EXPECT_EQ(NextNumber(9999), 1);
    EXPECT_EQ(NextNumber(12345), 1);
    EXPECT_EQ(NextNumber(INT32_MAX), 1);
    EXPECT_EQ(NextNumber(0), 1);
    EXPECT_EQ(NextNumber(-1), 0);
}

TEST(FileNames, TheLastPictureIsTheNumberBefore) {
    EXPECT_EQ(LastNumber(2), 1);
    EXPECT_EQ(LastNumber(1), 0);
    EXPECT_EQ(LastNumber(INT32_MIN), INT32_MIN);
}

TEST(FileNames, DeletingStopsAtZero) {
    EXPECT_EQ(PreviousNumber(2), 1);
    EXPECT_EQ(PreviousNumber(1), 0);
    EXPECT_EQ(PreviousNumber(0), 0);
    EXPECT_EQ(PreviousNumber(INT32_MIN), 0);
}

}  // namespace
