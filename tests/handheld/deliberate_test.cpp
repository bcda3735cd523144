// Each of these does something that must not pass; check_image.py sees that it is stopped and with which
// sentence. They run only when asked for.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "capture/file_names.h"
#include "handheld/loader/image.h"
#include "liveview/countdown.h"
#include "settings/counters.h"
#include "support/decode_run.h"
#include "support/picture_encoder.h"

void FillScreen(struct HWND__* window,
                unsigned long flags);  // framework/dialog_placement.h, without its headers

namespace {

constexpr int32_t kMode = 3;
constexpr uint32_t kPictureBytes = 160 * 120 * 2;

class Deliberate : public testing::Test {
  protected:
    void DecodeInto(uint32_t bytes) {
        picture = std::make_unique<uint8_t[]>(bytes);
        context->cursors.inputCursor = stream.data();
        context->cursors.inputRemaining = static_cast<uint32_t>(stream.size());
        context->cursors.outputCursor = picture.get();
        decode(kMode, *context, 0);
    }
    const Bytes stream = encodePicture(makePicture(160, 120, 1), {});
    std::unique_ptr<uint8_t[]> picture;
    TestContext context;
};

TEST_F(Deliberate, APictureBufferIsTooSmall) {
    DecodeInto(kPictureBytes - 4);
}

TEST_F(Deliberate, AWorkingBufferIsFreedUnderTheDecoder) {
    DecodeInto(kPictureBytes);
    std::free(context->mcuRowBuffer);
    DecodeInto(kPictureBytes);
}

TEST_F(Deliberate, TheStackIsTooSmall) {
    volatile auto* const frame = static_cast<uint8_t*>(__builtin_alloca(TheImage().stackBytes - 800));
    frame[0] = 0;
    DecodeInto(kPictureBytes);
}

TEST_F(Deliberate, ARecordLiesAmongTheConstants) {
    auto* const constants = reinterpret_cast<uint8_t*>(FindInImage("kKeyPictureNumber").address);
    StorePictureNumber(*reinterpret_cast<CameraSettings*>(constants - offsetof(CameraSettings, jpgNo)), {},
                       1);
}

TEST_F(Deliberate, ARecordLiesInTheCode) {
    auto* const code = reinterpret_cast<ScreenState*>(FindInImage("HandheldStart").address);
    AdvanceCountdown(*code, 0, 0);
}

TEST_F(Deliberate, DataIsCalled) {
    reinterpret_cast<void (*)()>(FindInImage("_ZN12_GLOBAL__N_18g_cameraE").address)();
}

TEST_F(Deliberate, AnImportHasNoDouble) {
    FillScreen(nullptr, 0);
}

TEST_F(Deliberate, ARecordIsMisaligned) {
    alignas(4) uint8_t room[sizeof(ScreenState) + 4] = {};
    auto& screen = *reinterpret_cast<ScreenState*>(room + 2);
    screen.countdownRunning = true;
    AdvanceCountdown(screen, 0, 0);
}

TEST_F(Deliberate, AnExpectationFails) {
    EXPECT_EQ(NextNumber(1), 3);
}

}  // namespace
