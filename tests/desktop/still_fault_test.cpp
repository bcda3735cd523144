// Stills that cannot be taken or kept: what the user hears of it, what is stored, and that the camera goes
// on.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/pictures.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using Settings = std::vector<std::pair<std::wstring, DWORD>>;

constexpr UINT kShutter = 1601, kActionKey = 134;
constexpr wchar_t kNoSpace[] = L"Not enough space, can not take a snapshot!";
constexpr wchar_t kTooLong[] = L"The folder and file name are too long, can not take a snapshot!";
constexpr char kStill[] = "control 0x80000007";
constexpr char kReopenFailed[] = "open access 0xC0000000 share 0 failed";
constexpr DWORD kNotStored = 77777;

// The smallest pictures, no review, no self-timer, but for what is given.
CameraOptions Options(const Settings& settings = {}, const std::wstring& storeKb = L"65536") {
    Settings all = {{L"aviresolution", 0},
                    {L"resolution", 3},
                    {L"imagequality", 0},
                    {L"instant review", 0},
                    {L"selftime", 0}};
    all.insert(all.end(), settings.begin(), settings.end());
    return {{{L"HANDHELD_STORE_KB", storeKb}}, all, "", {}};
}

bool Starts(CameraProcess& camera) {
    return camera.Screen() != nullptr && camera.WaitForFrames(3);
}

size_t Stills(const CameraProcess& camera) {
    return camera.CountCalls(kStill);
}

bool TakeStill(CameraProcess& camera) {
    const size_t before = Stills(camera);
    camera.Command(kShutter);
    return WaitFor([&] { return Stills(camera) == before + 1; });
}

bool NextNumberIs(DWORD number) {
    return WaitFor([&] { return ProfileValue(L"jpgno", kNotStored) == number; });
}

// The message that is open, answered with OK.
std::wstring AnsweredMessage(CameraProcess& camera) {
    HWND box = nullptr;
    if (!WaitFor([&] { return (box = camera.MessageBox()) != nullptr; })) return L"(no message)";
    const std::wstring text = CameraProcess::MessageText(box);
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    return text;
}

struct Room {
    const wchar_t* storeKb;  // 2 MiB are kept back, and a small picture counts 16 KiB
    bool enough;
};
class LittleRoom : public testing::TestWithParam<std::tuple<Room, bool>> {};

TEST_P(LittleRoom, TwoPicturesMustFit) {
    const auto& [room, byKey] = GetParam();
    CameraProcess camera(Options({}, room.storeKb));
    ASSERT_TRUE(Starts(camera));
    if (byKey)
        camera.ReleaseKey(kActionKey);
    else
        camera.Command(kShutter);
    if (room.enough) {
        EXPECT_TRUE(NextNumberIs(2));
        EXPECT_TRUE(IsWholePicture(PicturePath(camera, 1)));
    } else {
        const std::wstring text = AnsweredMessage(camera);
        EXPECT_TRUE(byKey ? !text.empty() : text == kNoSpace);
        EXPECT_TRUE(FilesIn(PictureFolder(camera)).empty());
        EXPECT_EQ(ProfileValue(L"jpgno", kNotStored), kNotStored);
        EXPECT_EQ(Stills(camera), 0u);
    }
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(ZeroOneAndTwo, LittleRoom,
                         testing::Combine(testing::Values(Room{L"2048", false}, Room{L"2063", false},
                                                          Room{L"2064", false}, Room{L"2080", true}),
                                          testing::Bool()));

TEST(FullStore, WaitingPressesOpenNoFurtherBox) {
    CameraProcess camera(Options({}, L"2048"));
    ASSERT_TRUE(Starts(camera));
    camera.Freeze();
    for (int i = 0; i < 20; ++i) {
        camera.Command(kShutter);
        camera.ReleaseKey(kActionKey);
    }
    camera.Thaw();
    EXPECT_EQ(AnsweredMessage(camera), kNoSpace);
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(camera.MessageBox(), nullptr);
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(FullStore, FilledDuringTheCountdownIsToldAtItsEnd) {
    CameraProcess camera(Options({{L"selftime", 1}}, L"4096"));
    ASSERT_TRUE(Starts(camera));
    camera.Command(kShutter);
    ASSERT_TRUE(camera.WaitForFrames(5));
    WriteBytes(camera.Store() / "filler", std::string(2100 * 1024, 'x'));
    EXPECT_EQ(AnsweredMessage(camera), kNoSpace);
    EXPECT_TRUE(FilesIn(PictureFolder(camera)).empty());
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(RefusedStill, TheNumberIsUsedUpAndNothingIsSaid) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    camera.SetCard("refuse-still");
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(camera.MessageBox(), nullptr);
    EXPECT_TRUE(FilesIn(PictureFolder(camera)).empty());
    camera.SetCard("");
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(3));
    EXPECT_EQ(FilesIn(PictureFolder(camera)), (Lines{"snap0002.jpg"}));
    EXPECT_TRUE(camera.ExitsInOrder());
}

// A card that could not be reopened: the shutter has nothing to talk to.
TEST(LostCard, TheShutterDoesNothingWhileTheCardIsClosed) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    camera.SetCard("unplugged");
    ASSERT_TRUE(WaitFor([&] { return camera.CountCalls(kReopenFailed) != 0; }));
    camera.Command(kShutter);
    camera.SetCard("");
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(Stills(camera), 0u);
    EXPECT_EQ(camera.MessageBox(), nullptr);
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(IsWholePicture(PicturePath(camera, 1)));
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(PulledCard, DuringTheCountdownEndsTheProgramWithoutAPicture) {
    CameraProcess camera(Options({{L"selftime", 1}}));
    ASSERT_TRUE(Starts(camera));
    camera.Command(kShutter);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.SetCard("unplugged");
    ASSERT_TRUE(camera.WaitForEnd());
    EXPECT_TRUE(camera.EndedInOrder());
    EXPECT_TRUE(FilesIn(PictureFolder(camera)).empty());
}

TEST(PulledCard, AndPutBackDuringTheCountdownStillTakesThePicture) {
    CameraProcess camera(Options({{L"selftime", 1}}));
    ASSERT_TRUE(Starts(camera));
    camera.Command(kShutter);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.SetCard("unplugged");
    ASSERT_TRUE(WaitFor([&] { return camera.CountCalls("card unplugged") != 0; }));
    camera.SetCard("");
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(IsWholePicture(PicturePath(camera, 1)));
    EXPECT_TRUE(camera.ExitsInOrder());
}

// The largest picture takes longest; the card goes as soon as its stream has been stopped for it.
TEST(PulledCard, DuringTheCaptureLeavesAWholePictureOrNone) {
    for (int round = 0; round < 3; ++round) {
        CameraProcess camera(Options({{L"resolution", 0}, {L"imagequality", 2}}));
        ASSERT_TRUE(Starts(camera));
        const size_t before = camera.Calls().size();
        camera.Command(kShutter);
        ASSERT_TRUE(WaitFor([&] { return camera.Calls().size() > before; }));
        camera.SetCard("unplugged");
        EXPECT_TRUE(NextNumberIs(2));
        ASSERT_TRUE(camera.WaitForEnd());
        for (const std::string& file : FilesIn(PictureFolder(camera))) {
            EXPECT_EQ(file, "snap0001.jpg");
            EXPECT_TRUE(IsWholePicture(PictureFolder(camera) / file));
        }
    }
}

TEST(PulledCard, BeforeTheCaptureIsARefusedStill) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    camera.Freeze();
    camera.Command(kShutter);
    camera.SetCard("unplugged");
    camera.Thaw();
    ASSERT_TRUE(camera.WaitForEnd());
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(FilesIn(PictureFolder(camera)).empty());
}

TEST(PulledCard, DuringTheReviewKeepsThePicture) {
    CameraProcess camera(Options({{L"instant review", 1}}));
    ASSERT_TRUE(Starts(camera));
    ASSERT_TRUE(TakeStill(camera));
    camera.SetCard("unplugged");
    ASSERT_TRUE(WaitFor([&] { return camera.CountCalls("card unplugged") != 0; }));
    camera.SetCard("");
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(IsWholePicture(PicturePath(camera, 1)));
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(PictureFolderGone, NumbersGoOnAndSoDoPicturesOnceItIsBack) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    fs::remove_all(PictureFolder(camera));
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_FALSE(fs::exists(PictureFolder(camera)));
    fs::create_directories(PictureFolder(camera));
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(3));
    EXPECT_EQ(FilesIn(PictureFolder(camera)), (Lines{"snap0002.jpg"}));
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(FileOfThatName, ReadOnlyStaysAsItIs) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    WriteBytes(PicturePath(camera, 1), "mine");
    ASSERT_TRUE(SetFileAttributesW(PicturePath(camera, 1).c_str(), FILE_ATTRIBUTE_READONLY));
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(ReadBytes(PicturePath(camera, 1)) == "mine");
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(3));
    EXPECT_EQ(FilesIn(PictureFolder(camera)), (Lines{"snap0001.jpg", "snap0002.jpg"}));
    SetFileAttributesW(PicturePath(camera, 1).c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(FileOfThatName, IsReplacedWhole) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    WriteBytes(PicturePath(camera, 1), std::string(200000, 'x'));
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(IsWholePicture(PicturePath(camera, 1)));
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(FileOfThatName, AFolderStaysAsItIs) {
    CameraProcess camera(Options());
    ASSERT_TRUE(Starts(camera));
    fs::create_directories(PicturePath(camera, 1) / "kept");
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(fs::exists(PicturePath(camera, 1) / "kept"));
    EXPECT_EQ(FilesIn(PictureFolder(camera)), (Lines{"snap0001.jpg"}));
    EXPECT_TRUE(camera.ExitsInOrder());
}

struct Counter {
    DWORD stored;
    const char* file;
    DWORD next;
};
class OddCounter : public testing::TestWithParam<Counter> {};

TEST_P(OddCounter, NamesAFileAndGoesOn) {
    CameraProcess camera(Options({{L"jpgno", GetParam().stored}}));
    ASSERT_TRUE(Starts(camera));
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(GetParam().next));
    EXPECT_EQ(FilesIn(PictureFolder(camera)), (Lines{GetParam().file}));
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(Values, OddCounter,
                         testing::Values(Counter{0, "snap0000.jpg", 1}, Counter{9999, "snap9999.jpg", 1},
                                         Counter{12345, "snap12345.jpg", 1},
                                         Counter{0xFFFFFFFF, "snap-0001.jpg", 0},
                                         Counter{0x7FFFFFFF, "snap2147483647.jpg", 1},
                                         Counter{0x80000000, "snap-2147483648.jpg", 0x80000001}));

// The request has room for 100 characters and their end: 26 of the folder, 8 of number and ending.
class LongPrefix : public testing::TestWithParam<size_t> {};

TEST_P(LongPrefix, IsToldOnceItNoLongerFits) {
    const std::wstring prefix(GetParam(), L'p');
    CameraOptions options = Options();
    options.texts = {{L"filename prefix", prefix}};
    CameraProcess camera(options);
    ASSERT_TRUE(Starts(camera));
    if (GetParam() > 66) {
        camera.Command(kShutter);
        EXPECT_EQ(AnsweredMessage(camera), kTooLong);
        EXPECT_TRUE(FilesIn(PictureFolder(camera)).empty());
        EXPECT_EQ(ProfileValue(L"jpgno", kNotStored), kNotStored);
        EXPECT_EQ(Stills(camera), 0u);
    } else {
        ASSERT_TRUE(TakeStill(camera));
        EXPECT_EQ(FilesIn(PictureFolder(camera)), (Lines{std::string(GetParam(), 'p') + "0001.jpg"}));
    }
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(Lengths, LongPrefix, testing::Values(65, 66, 67, 500));

class OddPrefix : public testing::TestWithParam<const wchar_t*> {};

TEST_P(OddPrefix, LeadsNoPictureOutOfTheStore) {
    CameraOptions options = Options();
    options.texts = {{L"filename prefix", GetParam()}};
    CameraProcess camera(options);
    ASSERT_TRUE(Starts(camera));
    const fs::path above = camera.Store().parent_path();
    const Lines before = FilesIn(above);
    ASSERT_TRUE(TakeStill(camera));
    EXPECT_TRUE(NextNumberIs(2));
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(FilesIn(above), before);
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(Texts, OddPrefix,
                         testing::Values(L"..\\..\\..\\out", L"no\\such\\folder\\", L"C:\\", L"a:b", L"a?*b",
                                         L"%s%n%d", L"\x65E5\x672C"));

}  // namespace
