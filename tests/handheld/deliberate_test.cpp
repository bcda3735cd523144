// Each of these does something that must not pass; check_image.py sees that it is stopped and with which sentence.
// They run only when asked for.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "capture/file_names.h"
#include "handheld/loader/image.h"
#include "liveview/countdown.h"
#include "settings/counters.h"
#include "support/decode_run.h"
#include "support/picture_encoder.h"

void FillScreen(struct HWND__* window, unsigned long flags);  // framework/dialog_placement.h, without its headers

namespace {

uint32_t DecodeInto(DecoderContext& context, uint32_t bytes) {
    const Bytes stream = encodePicture(makePicture(160, 120, 1), {});
    const auto picture = std::make_unique<uint8_t[]>(bytes);
    context.cursors.inputCursor = stream.data();
    context.cursors.inputRemaining = static_cast<uint32_t>(stream.size());
    context.cursors.outputCursor = picture.get();
    return decode(3, context, 0);
}

TEST(Deliberate, APictureBufferIsTooSmall) {
    TestContext context;
    DecodeInto(*context, 160 * 120 * 2 - 4);
}

TEST(Deliberate, AWorkingBufferIsFreedUnderTheDecoder) {
    TestContext context;
    DecodeInto(*context, 160 * 120 * 2);
    std::free(context->mcuRowBuffer);
    DecodeInto(*context, 160 * 120 * 2);
}

TEST(Deliberate, TheStackIsTooSmall) {
    TestContext context;
    volatile auto* const frame = static_cast<uint8_t*>(__builtin_alloca(TheImage().stackBytes - 2000));
    frame[0] = 0;
    DecodeInto(*context, 160 * 120 * 2);
    frame[1] = 0;
}

TEST(Deliberate, ARecordLiesAmongTheConstants) {
    auto* const constants = reinterpret_cast<uint8_t*>(FindInImage("kKeyPictureNumber").address);
    StorePictureNumber(*reinterpret_cast<CameraSettings*>(constants - offsetof(CameraSettings, jpgNo)), {}, 1);
}

TEST(Deliberate, ARecordLiesInTheCode) {
    auto* const code = reinterpret_cast<ScreenState*>(FindInImage("HandheldStart").address);
    AdvanceCountdown(*code, 0, 0);
}

TEST(Deliberate, DataIsCalled) {
    reinterpret_cast<void (*)()>(FindInImage("_ZN12_GLOBAL__N_18g_cameraE").address)();
}

TEST(Deliberate, AnImportHasNoDouble) {
    FillScreen(nullptr, 0);
}

TEST(Deliberate, ARecordIsMisaligned) {
    alignas(4) uint8_t room[sizeof(ScreenState) + 4] = {};
    auto& screen = *reinterpret_cast<ScreenState*>(room + 2);
    AdvanceCountdown(screen, 0, 0);
}

TEST(Deliberate, AnExpectationFails) {
    EXPECT_EQ(NextNumber(1), 3);
}

}  // namespace
