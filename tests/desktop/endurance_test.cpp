// The same thing a thousand times: nothing lost, nothing left behind.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "desktop/camera_process.h"
#include "desktop/pictures.h"
#include "desktop/process_counts.h"
#include "handheld/keypad/pad_layout.h"

namespace {

constexpr UINT kShutter = 1601, kActionKey = 134, kWatchdog = 10;
constexpr int kTimes = 1000;
constexpr DWORD kLimit = 120000;  // milliseconds for all of them
constexpr long kOpenedOnce = 10;  // by the system for the next time, however often

void ExpectNothingHeld(const ProcessCounts& before, const ProcessCounts& after) {
    testing::Test::RecordProperty("handles",
                                  std::to_string(before.handles) + " to " + std::to_string(after.handles));
    testing::Test::RecordProperty(
        "gdiObjects", std::to_string(before.gdiObjects) + " to " + std::to_string(after.gdiObjects));
    EXPECT_LE(after.handles, before.handles + kOpenedOnce);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + kOpenedOnce);
    EXPECT_LE(after.userObjects, before.userObjects + kOpenedOnce);
}

class Shutter : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        camera.Command(kShutter);  // sounds and codecs are there from now on
        ASSERT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 2; }));
        ASSERT_TRUE(camera.WaitForFrames(3));
        before = CountHeld(camera.Handle());
    }

    // The card's announcements of frames are waiting behind the presses.
    void PressAndWait(const std::function<void()>& press) {
        camera.Freeze();
        for (int i = 0; i < kTimes; ++i) press();
        camera.Thaw();
        ASSERT_TRUE(WaitFor([&] { return camera.WaitForFrames(5); }, kLimit));
    }

    CameraProcess camera{{{},
                          {{L"aviresolution", 1},
                           {L"resolution", 3},
                           {L"imagequality", 0},
                           {L"selftime", 0},
                           {L"instant review", 0},
                           {L"recordwithaudio", 0}},
                          "",
                          {}}};
    ProcessCounts before;
};

TEST_F(Shutter, AThousandPressesAreAThousandPictures) {
    PressAndWait([&] { camera.Command(kShutter); });
    EXPECT_EQ(ProfileValue(L"jpgno", 0), kTimes + 2u);
    EXPECT_EQ(FilesIn(PictureFolder(camera)).size(), kTimes + 1u);
    for (const std::string& file : FilesIn(PictureFolder(camera)))
        ASSERT_TRUE(IsWholePicture(PictureFolder(camera) / file)) << file;
    ExpectNothingHeld(before, CountHeld(camera.Handle()));
    EXPECT_TRUE(camera.ExitsInOrder());
}

// Each release of the action key drops the three messages behind it, so a quarter of them takes a picture.
TEST_F(Shutter, AThousandKeysNeverLoseAPicture) {
    PressAndWait([&] { camera.ReleaseKey(kActionKey); });
    const DWORD next = ProfileValue(L"jpgno", 0);
    EXPECT_GE(next, kTimes / 4u);
    EXPECT_EQ(FilesIn(PictureFolder(camera)).size(), next - 1u);
    ExpectNothingHeld(before, CountHeld(camera.Handle()));
    EXPECT_TRUE(camera.ExitsInOrder());
}

// The lines of the card's log that begin with a text, read on from where the last look ended.
class LogCount {
  public:
    LogCount(const std::filesystem::path& log, const char* text) : m_path(log), m_text(text) {}
    int Now() {
        std::ifstream log(m_path, std::ios::binary);
        log.seekg(m_read);
        for (std::string line; std::getline(log, line) && !log.eof();) {
            m_count += line.compare(0, m_text.size(), m_text) == 0;
            m_read = log.tellg();
        }
        return m_count;
    }

  private:
    const std::filesystem::path m_path;
    const std::string m_text;
    std::streamoff m_read = 0;  // up to the end of the last whole line
    int m_count = 0;
};

class Card : public testing::Test {
  protected:
    void SetUp() override {
        screen = camera.Screen();
        ASSERT_NE(screen, nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        ASSERT_TRUE(WaitFor([&] {
            pad = FindWindowW(handheld::kPadClass, nullptr);
            return pad != nullptr && IsWindowVisible(pad);
        }));
    }
    void MoveCard() {
        const LPARAM place = MAKELPARAM(handheld::kCardArea.left + 70, handheld::kCardArea.top + 15);
        SendMessageW(pad, WM_LBUTTONDOWN, 0, place);
        SendMessageW(pad, WM_LBUTTONUP, 0, place);
    }
    // The card is out for as long as two messages take.  Then the watchdog is given ticks of its own, more
    // often than its timer has them, until it has found the stream gone and opened the card anew.
    void PullAndPutBack() {
        MoveCard();
        MoveCard();
        const int reopened = opens.Now(), seen = frames.Now();
        ASSERT_TRUE(WaitFor([&] {
            SendMessageW(screen, WM_TIMER, kWatchdog, 0);
            return opens.Now() > reopened;
        }));
        ASSERT_TRUE(WaitFor([&] { return frames.Now() > seen; }));
    }

    CameraProcess camera{
        {{{L"HANDHELD_KEYPAD", L"on"}, {L"HANDHELD_FPS", L"60"}}, {{L"aviresolution", 1}}, "", {}}};
    HWND screen = nullptr, pad = nullptr;
    LogCount opens{camera.LogFile(), "open access 0xC0000000 share 0"};
    LogCount frames{camera.LogFile(), "control 0x80000013"};
};

TEST_F(Card, AThousandTimesPulledAndPutBack) {
    for (int i = 0; i < 5; ++i) ASSERT_NO_FATAL_FAILURE(PullAndPutBack());
    const ProcessCounts before = CountHeld(camera.Handle());
    for (int i = 0; i < kTimes; ++i) ASSERT_NO_FATAL_FAILURE(PullAndPutBack()) << "round " << i;
    ASSERT_TRUE(camera.WaitForFrames(3));
    ExpectNothingHeld(before, CountHeld(camera.Handle()));
    EXPECT_TRUE(camera.ExitsInOrder());
}

}  // namespace
