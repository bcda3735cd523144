#include <algorithm>
#include <atomic>
#include <cstring>
#include <thread>

#include "complete_frame.h"
#include "driver_fixture.h"
#include "handheld/sio/card/modes.h"
#include "handheld/sio/driver/picture_file.h"
#include "handheld/sio/encoder/still_encoder.h"

using namespace sio;

namespace {

using Lines = std::vector<std::string>;

std::string asText(const std::vector<uint8_t>& bytes) {
    return std::string(bytes.begin(), bytes.end());
}

bool endsWithMarker(const std::vector<uint8_t>& bytes) {
    return bytes.size() > 2 && bytes[bytes.size() - 2] == 0xFF && bytes.back() == 0xD9;
}

Picture constant(int width, int height, Rgb colour) {
    Picture picture;
    picture.resize(width, height);
    std::fill(picture.pixels.begin(), picture.pixels.end(), colour);
    return picture;
}

}  // namespace

class CardDriver : public DriverTest {
  protected:
    Picture decodeFrame(const Frame& frame, const PreviewMode& mode) {
        const std::wstring path = m_root + L"\\frame.jpg";
        writeFile(path, asText(completeFrame(frame.bytes, mode.view.width, mode.view.height, mode.sampling)));
        Picture picture;
        return readPictureFile(path, picture) ? picture : Picture{};
    }
};

TEST_F(CardDriver, EmptySlotHasNoCard) {
    setEnvironment(L"HANDHELD_CAMERA", L"none");
    EXPECT_EQ(0u, m_init(0));
    EXPECT_EQ(0u, m_open(1, GENERIC_READ, 3));
}

TEST_F(CardDriver, OneCardAtATime) {
    start();
    EXPECT_EQ(0u, m_init(0));
    EXPECT_TRUE(m_deinit(m_device));
    EXPECT_FALSE(m_deinit(m_device));
    m_device = m_init(0);
    EXPECT_NE(0u, m_device);
}

TEST_F(CardDriver, EveryModeDeliversItsFrames) {
    start();
    for (DWORD code : {4u, 9u, 17u, 6u, 20u, 21u}) {
        const PreviewMode& mode = *findPreviewMode(code);
        const Frame frame = firstFrame(code);
        ASSERT_TRUE(frame.succeeded) << code;
        EXPECT_TRUE(endsWithMarker(frame.bytes)) << code;
        EXPECT_TRUE(frame.guardIntact);
        const Picture picture = decodeFrame(frame, mode);
        EXPECT_EQ(mode.view.width, picture.width) << code;
        EXPECT_EQ(mode.view.height, picture.height) << code;
        EXPECT_TRUE(control(IOCTL_CAMERA_STOP_PREVIEW));
    }
}

TEST_F(CardDriver, RefusesModesItDoesNotKnow) {
    start();
    for (DWORD mode : {0u, 5u, 10u, 76u}) EXPECT_FALSE(startPreview(mode));
    EXPECT_FALSE(control(IOCTL_CAMERA_START_PREVIEW, nullptr, 4));
    const HWND nothing = nullptr;
    EXPECT_FALSE(control(IOCTL_CAMERA_START_PREVIEW, &nothing, 4));
    EXPECT_EQ(0, announcements(200));
}

TEST_F(CardDriver, OneUnreadAnnouncementAtATime) {
    setEnvironment(L"HANDHELD_FPS", L"30");
    start();
    ASSERT_TRUE(startPreview(6));
    EXPECT_EQ(1, announcements(350));
    EXPECT_TRUE(readFrame().succeeded);
    EXPECT_EQ(1, announcements(350));
}

TEST_F(CardDriver, LostAnnouncementIsRepeated) {
    start();
    ASSERT_TRUE(startPreview(6));
    EXPECT_EQ(1, announcements(5000, 1));
    EXPECT_EQ(1, announcements(5000, 1));
}

TEST_F(CardDriver, KeepsTheFrameRate) {
    setEnvironment(L"HANDHELD_FPS", L"30");
    start();
    ASSERT_TRUE(startPreview(4));
    ASSERT_EQ(1, announcements(5000, 1));
    const DWORD begin = GetTickCount();
    for (int i = 0; i < 30; ++i) {
        ASSERT_TRUE(readFrame().succeeded);
        ASSERT_EQ(1, announcements(5000, 1));
    }
    const DWORD passed = GetTickCount() - begin;
    EXPECT_GE(passed, 900u);
    EXPECT_LE(passed, 2000u);
}

TEST_F(CardDriver, StopMeansStop) {
    start();
    EXPECT_TRUE(firstFrame(4).succeeded);
    EXPECT_TRUE(control(IOCTL_CAMERA_STOP_PREVIEW));
    announcements(1);
    EXPECT_EQ(0, announcements(250));
    const Frame frame = readFrame();
    EXPECT_FALSE(frame.succeeded);
    EXPECT_EQ(0u, frame.returned);
}

TEST_F(CardDriver, LastCloseEndsTheLiveView) {
    start();
    const DWORD_PTR second = open();
    EXPECT_TRUE(firstFrame(6).succeeded);
    EXPECT_TRUE(m_close(second));
    EXPECT_FALSE(m_close(second));
    EXPECT_EQ(1, announcements(5000, 1));
    EXPECT_TRUE(m_close(m_file));
    announcements(1);
    EXPECT_EQ(0, announcements(700));
    EXPECT_FALSE(readFrame().succeeded);
}

TEST_F(CardDriver, ClosedWindowEndsTheLiveViewQuietly) {
    start();
    EXPECT_TRUE(firstFrame(6).succeeded);
    DestroyWindow(m_window);
    readFrame();
    announcements(200);
    EXPECT_FALSE(readFrame().succeeded);
    EXPECT_TRUE(control(IOCTL_CAMERA_STOP_PREVIEW));
}

TEST_F(CardDriver, StaysShutDownUntilTheNextOpen) {
    start();
    EXPECT_TRUE(firstFrame(6).succeeded);
    EXPECT_TRUE(control(IOCTL_CAMERA_SHUTDOWN));
    EXPECT_TRUE(control(IOCTL_CAMERA_SHUTDOWN));
    EXPECT_FALSE(startPreview(6));
    EXPECT_FALSE(capture(4, L"\\a.jpg"));
    EXPECT_TRUE(control(IOCTL_CAMERA_STOP_PREVIEW));
    EXPECT_NE(0u, open());
    EXPECT_TRUE(firstFrame(6).succeeded);
}

TEST_F(CardDriver, TellsItsVersion) {
    start();
    wchar_t text[kVersionCharacters];
    std::fill(text, text + kVersionCharacters, L'#');
    EXPECT_TRUE(control(IOCTL_CAMERA_GET_VERSION, nullptr, 0, text));
    EXPECT_STREQ(L"1.2.0", text);
    EXPECT_FALSE(control(IOCTL_CAMERA_GET_VERSION));
}

TEST_F(CardDriver, RefusesUnknownCodesAndMissingBuffers) {
    start();
    EXPECT_FALSE(control(0x80000003));
    EXPECT_FALSE(control(IOCTL_CAMERA_SET_EVENT_WINDOW));
    EXPECT_TRUE(control(IOCTL_CAMERA_SET_EVENT_WINDOW, &m_window, 0));
    EXPECT_FALSE(control(IOCTL_CAMERA_SET_IMAGE_PARAMS));
    EXPECT_FALSE(control(IOCTL_CAMERA_READ_FRAME));
    EXPECT_FALSE(control(IOCTL_CAMERA_CAPTURE_STILL));
    EXPECT_FALSE(m_control(99, IOCTL_CAMERA_SHUTDOWN, nullptr, 0, nullptr, 0, nullptr));
}

TEST_F(CardDriver, ImageParametersReachTheFrames) {
    start();
    const ImageParameters blackAndWhite{0, 1, 0, 0};
    EXPECT_TRUE(control(IOCTL_CAMERA_SET_IMAGE_PARAMS, &blackAndWhite, sizeof blackAndWhite));
    const Picture picture = decodeFrame(firstFrame(4), *findPreviewMode(4));
    ASSERT_FALSE(picture.empty());
    for (const Rgb& p : picture.pixels) ASSERT_LE(std::max({p.r, p.g, p.b}) - std::min({p.r, p.g, p.b}), 6);
}

TEST_F(CardDriver, StillsOfEveryMode) {
    start();
    for (uint8_t code : {0, 1, 2, 4, 7, 8, 17}) {
        ASSERT_TRUE(capture(code, L"\\My Documents\\still.jpg"));
        Picture picture;
        ASSERT_TRUE(readPictureFile(m_store + L"\\My Documents\\still.jpg", picture));
        EXPECT_EQ(findStillMode(code)->view.width, picture.width);
        EXPECT_EQ(findStillMode(code)->view.height, picture.height);
    }
    EXPECT_FALSE(exists(m_store + L"\\My Documents\\still.jpg.part"));
}

TEST_F(CardDriver, StillPathsLiveInTheStore) {
    start();
    EXPECT_TRUE(capture(4, L"\\my documents\\A.JPG"));
    EXPECT_TRUE(exists(m_store + L"\\My Documents\\a.jpg"));
    EXPECT_TRUE(capture(4, L"\\..\\..\\b.jpg"));
    EXPECT_TRUE(exists(m_store + L"\\b.jpg"));
    EXPECT_FALSE(capture(4, m_root + L"\\c.jpg"));
    EXPECT_FALSE(exists(m_root + L"\\c.jpg"));
    EXPECT_FALSE(capture(4, L""));
    EXPECT_FALSE(capture(4, L"\\No Such Folder\\d.jpg"));
    EXPECT_FALSE(capture(3, L"\\e.jpg"));
    EXPECT_FALSE(exists(m_store + L"\\e.jpg"));
    EXPECT_FALSE(capture(4, L"\\My Documents"));
    EXPECT_FALSE(exists(m_store + L"\\My Documents.part"));
}

TEST_F(CardDriver, ShutterSoundIsNoCondition) {
    start();
    const auto program = static_cast<uint32_t>(reinterpret_cast<DWORD_PTR>(GetModuleHandleW(nullptr)));
    EXPECT_TRUE(capture(4, L"\\own.jpg", 1, program));
    EXPECT_TRUE(capture(4, L"\\foreign.jpg", 1, 0x12345));
    EXPECT_TRUE(exists(m_store + L"\\own.jpg") && exists(m_store + L"\\foreign.jpg"));
}

TEST_F(CardDriver, FullStoreRefusesTheStillAndKeepsTheOld) {
    start();
    ASSERT_TRUE(capture(4, L"\\old.jpg"));
    const std::string old = readFile(m_store + L"\\old.jpg");
    setEnvironment(L"HANDHELD_STORE_KB", std::to_wstring(old.size() / 1024 + 1));
    EXPECT_FALSE(capture(4, L"\\new.jpg"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_DISK_FULL), GetLastError());
    EXPECT_FALSE(exists(m_store + L"\\new.jpg"));
    EXPECT_FALSE(exists(m_store + L"\\new.jpg.part"));
    EXPECT_FALSE(capture(4, L"\\old.jpg", 2));
    EXPECT_EQ(old, readFile(m_store + L"\\old.jpg"));
}

TEST_F(CardDriver, UnpluggedCardAnswersNothing) {
    start();
    EXPECT_TRUE(firstFrame(6).succeeded);
    writeCard("unplugged");
    EXPECT_FALSE(control(IOCTL_CAMERA_STOP_PREVIEW));
    EXPECT_EQ(0u, open());
    announcements(1);
    EXPECT_EQ(0, announcements(700));
    writeCard("");
    // It comes back without its live view, as a card does that has lost its power.
    EXPECT_EQ(0, announcements(300));
    EXPECT_NE(0u, open());
    EXPECT_TRUE(firstFrame(6).succeeded);
}

TEST_F(CardDriver, UnpluggingIsNoticedWithoutAnyCall) {
    start();
    EXPECT_TRUE(firstFrame(6).succeeded);
    writeCard("unplugged");
    for (int i = 0; i < 100 && logLines().back() != "card unplugged"; ++i) announcements(20);
    EXPECT_EQ("card unplugged", logLines().back());
    DeleteFileW((m_root + L"\\card.txt").c_str());
    for (int i = 0; i < 100 && logLines().back() != "card inserted"; ++i) announcements(20);
    EXPECT_EQ("card inserted", logLines().back());
}

TEST_F(CardDriver, SilentCardAnnouncesNothing) {
    writeCard("silent");
    start();
    ASSERT_TRUE(startPreview(6));
    EXPECT_EQ(0, announcements(300));
    writeCard("");
    EXPECT_EQ(1, announcements(5000, 1));
}

TEST_F(CardDriver, RefusesStillsOnRequest) {
    writeCard("refuse-still");
    start();
    EXPECT_FALSE(capture(4, L"\\a.jpg"));
    EXPECT_FALSE(exists(m_store + L"\\a.jpg"));
    EXPECT_TRUE(firstFrame(6).succeeded);
}

TEST_F(CardDriver, FaultyFrames) {
    start();
    writeCard("garbage");
    const Frame garbage = firstFrame(4);
    EXPECT_TRUE(garbage.succeeded && endsWithMarker(garbage.bytes) && garbage.guardIntact);
    writeCard("short");
    const Frame tooShort = firstFrame(4);
    EXPECT_TRUE(tooShort.succeeded);
    EXPECT_EQ(0u, tooShort.returned);
    writeCard("long");
    const Frame tooLong = firstFrame(4);
    EXPECT_TRUE(tooLong.succeeded);
    EXPECT_EQ(76210u, tooLong.returned);
    EXPECT_TRUE(tooLong.guardIntact);
}

TEST_F(CardDriver, LogTellsTheWholeSession) {
    start();
    const ImageParameters parameters{1, 0, 2, 1};
    control(IOCTL_CAMERA_SET_EVENT_WINDOW, &m_window, 0);
    control(IOCTL_CAMERA_SET_IMAGE_PARAMS, &parameters, sizeof parameters);
    firstFrame(6);
    control(IOCTL_CAMERA_STOP_PREVIEW);
    capture(4, L"\\My Documents\\snap0001.jpg");
    writeCard("unplugged oops");
    control(IOCTL_CAMERA_STOP_PREVIEW);
    m_close(m_file);
    m_open(m_device, GENERIC_READ | GENERIC_WRITE, 0);
    EXPECT_EQ((Lines{
                  "open access 0xC0000000 share 3",
                  "control 0x80000027 in 0 out 0",
                  "control 0x8000001B in 16 out 0 params awb 1 color 0 quality 2 metering 1",
                  "control 0x8000000F in 6 out 0 preview mode 6",
                  "control 0x80000013 in 4 out 0",
                  "control 0x80000017 in 0 out 0",
                  "control 0x80000007 in 220 out 0 still mode 4 quality 1 sound 0 path "
                  "\\My Documents\\snap0001.jpg",
                  "card does not know the word oops",
                  "card unplugged",
                  "control 0x80000017 in 0 out 0 failed",
                  "close",
                  "open access 0xC0000000 share 0 failed",
              }),
              logLines());
}

TEST_F(CardDriver, ShowsThePicturesOfAFolder) {
    setEnvironment(L"HANDHELD_FPS", L"60");
    setEnvironment(L"HANDHELD_CAMERA", L"folder:" + m_root + L"\\pictures");
    CreateDirectoryW((m_root + L"\\pictures").c_str(), nullptr);
    writeFile(m_root + L"\\pictures\\1.jpg",
              asText(encodeStill(constant(64, 64, {180, 60, 60}), 2, 1 << 20)));
    writeFile(m_root + L"\\pictures\\2.jpg", "no picture at all");
    writeFile(m_root + L"\\pictures\\3.JPEG",
              asText(encodeStill(constant(90, 30, {60, 60, 180}), 2, 1 << 20)));
    writeFile(m_root + L"\\pictures\\4.txt", "a note");
    start();
    Picture picture = decodeFrame(firstFrame(6), *findPreviewMode(6));
    ASSERT_FALSE(picture.empty());
    EXPECT_GT(picture.at(80, 60).r, picture.at(80, 60).b + 50);
    for (int i = 0; i < 30; ++i) {
        ASSERT_EQ(1, announcements(5000, 1));
        const Frame frame = readFrame();
        if (i == 29) picture = decodeFrame(frame, *findPreviewMode(6));
    }
    EXPECT_GT(picture.at(80, 60).b, picture.at(80, 60).r + 50);
}

TEST_F(CardDriver, FolderWithoutPicturesAndUnknownSourcesShowATestCard) {
    CreateDirectoryW((m_root + L"\\pictures").c_str(), nullptr);
    writeFile(m_root + L"\\pictures\\1.png", "no picture at all");
    for (const std::wstring& camera :
         {L"folder:" + m_root + L"\\pictures", L"folder:" + m_root + L"\\nowhere", std::wstring(L"folder:"),
          std::wstring(L"webcam")}) {
        setEnvironment(L"HANDHELD_CAMERA", camera);
        start();
        const Picture picture = decodeFrame(firstFrame(4), *findPreviewMode(4));
        ASSERT_FALSE(picture.empty());
        // Left bar white, right bar blue, and the dark panel of the message between.
        EXPECT_GT(picture.at(10, 10).g, 200);
        EXPECT_LT(picture.at(310, 10).g, 90);
        EXPECT_LT(picture.at(3, 120).g, 60);
        m_deinit(m_device);
        m_device = 0;
    }
}

TEST_F(CardDriver, ManyThreadsAtOnce) {
    setEnvironment(L"HANDHELD_FPS", L"60");
    start();
    std::atomic<bool> ending{false};
    std::atomic<int> frames{0};
    std::thread reader([&] {
        while (!ending) {
            frames += readFrame().returned > 0;
            Sleep(1);
        }
    });
    std::thread opener([&] {
        while (!ending) {
            m_close(open());
            Sleep(1);
        }
    });
    for (int i = 0; i < 60; ++i) {
        ASSERT_TRUE(startPreview(i % 2 ? 4 : 9));
        const ImageParameters parameters{i % 5u, i % 3u, 0, i % 2u};
        ASSERT_TRUE(control(IOCTL_CAMERA_SET_IMAGE_PARAMS, &parameters, sizeof parameters));
        announcements(20);
        ASSERT_TRUE(control(IOCTL_CAMERA_STOP_PREVIEW));
    }
    ending = true;
    reader.join();
    opener.join();
    EXPECT_GT(frames, 10);
}
