// Damaged streams: whatever comes, a code comes back and nothing outside the buffers is touched. Input and
// picture buffer have exactly their sizes here, so the address sanitizer sees the first byte beyond them.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "support/decode_run.h"
#include "support/picture_encoder.h"

namespace {

const std::set<uint32_t> kCodes = {0, 1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 13, 18};
constexpr int32_t kModes[] = {1, 3, 6, 7, 9, 13, 4};
constexpr Sampling kSamplings[] = {Sampling::k444, Sampling::k422, Sampling::k420};

// Small enough for thousands of decodes: reduced by 1, 2 and 8 among the modes.
Bytes sample(Sampling sampling, uint16_t restartInterval) {
    EncodeOptions options;
    options.sampling = sampling;
    options.coarseness = 12;
    options.restartInterval = restartInterval;
    return encodePicture(makePicture(160, 128, 3), options);
}

// The message about other sample sizes would only clutter the report.
void expectKnownCode(TestContext& context, int32_t mode, const Bytes& stream) {
    const Decoded decoded = runDecode(*context, mode, stream);
    ASSERT_EQ(kCodes.count(decoded.code), 1u) << decoded.code;
    ASSERT_LE(decoded.picture.size(), targetPicture(mode).totalBytes);
}

}  // namespace

TEST(Damage, CutAnywhere) {
    TestContext context;
    for (Sampling sampling : kSamplings) {
        const Bytes whole = sample(sampling, 5);
        for (size_t size = 0; size < whole.size(); size += size < 220 ? 1 : 37) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            const int32_t mode = kModes[size % 7];
            const Decoded decoded = runDecode(*context, mode, cut);
            // Mode 4 takes none but its own size and says so before it sees the end.
            const bool refused = mode == 4 && decoded.code == kDecodeUnsupported;
            ASSERT_TRUE(refused || decoded.code == kDecodeInputEnded) << size << " " << decoded.code;
        }
    }
}

TEST(Damage, FlippedBits) {
    TestContext context;
    std::mt19937 random(7);
    testing::internal::CaptureStdout();
    for (int round = 0; round < 3000; ++round) {
        static const Bytes kWhole[] = {sample(Sampling::k444, 0), sample(Sampling::k422, 7),
                                       sample(Sampling::k420, 1)};
        Bytes stream = kWhole[round % 3];
        const size_t range = round % 2 == 0 ? 190 : stream.size();
        for (uint32_t flips = 1 + random() % 4; flips != 0; --flips) {
            stream[random() % range] ^= static_cast<uint8_t>(1u << random() % 8);
        }
        expectKnownCode(context, kModes[random() % 7], stream);
    }
    testing::internal::GetCapturedStdout();
}

TEST(Damage, LostAndAddedBytes) {
    TestContext context;
    std::mt19937 random(8);
    testing::internal::CaptureStdout();
    const Bytes whole = sample(Sampling::k420, 3);
    for (int round = 0; round < 1500; ++round) {
        Bytes stream = whole;
        const auto place = static_cast<std::ptrdiff_t>(random() % (round % 2 == 0 ? 190 : stream.size()));
        if (round % 3 == 0) {
            stream.erase(stream.begin() + place);
        } else {
            stream.insert(stream.begin() + place,
                          round % 3 == 1 ? uint8_t{0xFF} : static_cast<uint8_t>(random()));
        }
        expectKnownCode(context, kModes[random() % 7], stream);
    }
    testing::internal::GetCapturedStdout();
}

TEST(Damage, NoiseBehindAGoodHeader) {
    TestContext context;
    std::mt19937 random(9);
    for (int round = 0; round < 300; ++round) {
        Bytes noise(2000);
        for (uint8_t& byte : noise) byte = static_cast<uint8_t>(random());
        JpegStream stream = JpegStream::untilScan(160, 120, kSamplings[round % 3], 255);
        expectKnownCode(context, kModes[random() % 7], stream.raw(noise).end().bytes());
    }
}

// A context serves one picture after the other, whatever became of those before.
TEST(Damage, LeavesNoTraceInTheNextDecode) {
    const Bytes good = sample(Sampling::k422, 4);
    const Decoded expected = runDecode(9, good);
    ASSERT_EQ(expected.code, kDecodeOk);
    TestContext context;
    std::mt19937 random(10);
    for (int round = 0; round < 60; ++round) {
        Bytes bad = sample(kSamplings[round % 3], static_cast<uint16_t>(round));
        bad.resize(random() % bad.size());
        runDecode(*context, kModes[random() % 7], bad);
        const Decoded decoded = runDecode(*context, 9, good);
        ASSERT_EQ(decoded.code, expected.code);
        ASSERT_EQ(decoded.picture, expected.picture) << round;
    }
}
