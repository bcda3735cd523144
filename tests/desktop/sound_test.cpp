// Which sounds the camera makes: the program's own, and the card's on its behalf.
#include <gtest/gtest.h>

#include <fstream>

#include "desktop/camera_process.h"

namespace {

using Lines = std::vector<std::string>;

constexpr UINT kShutter = 1601, kZoomOut = 1604, kZoomIn = 1605;
constexpr UINT kZoomOutKey = 195, kZoomInKey = 196;

// Wine prefers its own library to one beside a program unless it is told otherwise; Windows needs no telling.
class PreferRecorder {
  public:
    PreferRecorder() { RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"winmm", REG_SZ, kOrder, sizeof(kOrder)); }
    ~PreferRecorder() { RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }
    PreferRecorder(const PreferRecorder&) = delete;
    PreferRecorder& operator=(const PreferRecorder&) = delete;

  private:
    static constexpr wchar_t kKey[] = L"Software\\Wine\\AppDefaults\\zelcamera.exe\\DllOverrides";
    static constexpr wchar_t kOrder[] = L"native,builtin";
};

// A camera whose sounds are written down instead of played.
class RecordedCamera {
  public:
    RecordedCamera(DWORD movieSound, DWORD cameraSound)
        : m_record(WithRecorder(m_copy) / "sounds"),
          camera({{{L"SOUND_RECORD", m_record.wstring()}},
                  {{L"aviresolution", 0},
                   {L"recordwithaudio", movieSound},
                   {L"camera sound", cameraSound},
                   {L"instant review", 0}},
                  "",
                  m_copy.Program()}) {}

    bool IsLive() { return camera.Screen() != nullptr && camera.WaitForFrames(3); }
    Lines Sounds() const {
        Lines lines;
        std::ifstream record(m_record);
        for (std::string line; std::getline(record, line);) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            lines.push_back(line);
        }
        return lines;
    }
    // All sounds, once there are this many, or once nothing more can come.
    Lines SoundsOnce(size_t count) {
        WaitFor([&] { return Sounds().size() >= count; });
        camera.WaitForFrames(3);
        return Sounds();
    }

  private:
    static std::filesystem::path WithRecorder(const ProgramCopy& copy) {
        std::filesystem::copy_file(CameraProcess::BuildFolder() / "tests" / "recorder" / "winmm.dll",
                                   copy.Folder() / "winmm.dll");
        return copy.Folder();
    }

    const PreferRecorder m_preference;
    const ProgramCopy m_copy;
    const std::filesystem::path m_record;

  public:
    CameraProcess camera;
};

TEST(ZoomSounds, OneForEachStepAndNoneAtTheEnds) {
    RecordedCamera recorded(1, 0);
    ASSERT_TRUE(recorded.IsLive());
    for (int i = 0; i < 3; ++i) recorded.camera.Command(kZoomIn);
    for (int i = 0; i < 3; ++i) recorded.camera.Command(kZoomOut);
    const std::string in = "zoomin of zelcamera.exe", out = "zoomout of zelcamera.exe";
    EXPECT_EQ(recorded.SoundsOnce(4), (Lines{in, in, out, out}));
}

TEST(ZoomSounds, TheKeysMakeThemToo) {
    RecordedCamera recorded(1, 0);
    ASSERT_TRUE(recorded.IsLive());
    recorded.camera.ReleaseKey(kZoomOutKey);
    recorded.camera.ReleaseKey(kZoomInKey);
    recorded.camera.ReleaseKey(kZoomOutKey);
    EXPECT_EQ(recorded.SoundsOnce(2), (Lines{"zoomin of zelcamera.exe", "zoomout of zelcamera.exe"}));
}

TEST(ZoomSounds, SilentWithoutMovieSoundWhateverTheCameraSound) {
    RecordedCamera recorded(0, 1);
    ASSERT_TRUE(recorded.IsLive());
    recorded.camera.Command(kZoomIn);
    recorded.camera.Command(kZoomOut);
    WaitFor([&] { return recorded.camera.Calls().size() >= 8; });
    EXPECT_EQ(recorded.SoundsOnce(0), Lines());
}

class ShutterSound : public testing::TestWithParam<std::pair<DWORD, DWORD>> {};

// The card plays it, out of the program's resources, when the request asks for it.
TEST_P(ShutterSound, NeedsBothSettings) {
    const auto [movieSound, cameraSound] = GetParam();
    RecordedCamera recorded(movieSound, cameraSound);
    ASSERT_TRUE(recorded.IsLive());
    recorded.camera.Command(kShutter);
    ASSERT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 1) == 2; }));
    const bool audible = movieSound != 0 && cameraSound != 0;
    EXPECT_EQ(recorded.SoundsOnce(audible ? 1 : 0), audible ? Lines{"SNAP of zelcamera.exe"} : Lines());
}

INSTANTIATE_TEST_SUITE_P(EveryPair, ShutterSound,
                         testing::Values(std::pair<DWORD, DWORD>{0, 0}, std::pair<DWORD, DWORD>{0, 1},
                                         std::pair<DWORD, DWORD>{1, 0}, std::pair<DWORD, DWORD>{1, 1}));

}  // namespace
