// Every engine that this processor can run against the portable one: code, every byte of the picture, and the
// state in which the scan leaves the reader.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "device/preview_headers.h"
#include "jpeg/scan_engine.h"
#include "jpeg/zigzag.h"
#include "support/decode_run.h"
#include "support/picture_encoder.h"
#include "support/scan_writer.h"

namespace {

struct Outcome {
    uint32_t code;
    Bytes picture;
    uint32_t inputRemaining;
    ptrdiff_t chunkPlace, chunkEnd;
    int32_t bitCount;
    uint32_t bits;

    bool operator==(const Outcome& other) const {
        return code == other.code && picture == other.picture && inputRemaining == other.inputRemaining &&
               chunkPlace == other.chunkPlace && chunkEnd == other.chunkEnd && bitCount == other.bitCount &&
               bits == other.bits;
    }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    return out << "code " << outcome.code << ", " << outcome.picture.size() << " bytes, input left "
               << outcome.inputRemaining << ", chunk " << outcome.chunkPlace << "/" << outcome.chunkEnd
               << ", bits " << outcome.bitCount << ": " << outcome.bits;
}

Outcome outcomeOf(const jpeg::ScanEngine& engine, DecoderContext& context, int32_t mode,
                  const Bytes& stream) {
    context.engine = &engine;
    const Decoded decoded = runDecode(context, mode, stream);
    const DecoderCursors& cursors = context.cursors;
    const uint32_t bits = context.bitCount == 0 ? 0 : context.bitBuffer << (32 - context.bitCount);
    return {decoded.code,
            decoded.picture,
            cursors.inputRemaining,
            cursors.chunkCursor - context.inputChunk,
            cursors.chunkEnd - context.inputChunk,
            context.bitCount,
            bits};
}

class Engines : public testing::Test {
  protected:
    // Of the portable engine, after comparing the others with it.
    uint32_t expectSame(int32_t mode, const Bytes& stream) {
        const jpeg::ScanEngineList engines = jpeg::scanEngines();
        const Outcome expected = outcomeOf(engines.engines[0], *m_context, mode, stream);
        for (const jpeg::ScanEngine& engine : engines) {
            if (&engine == engines.engines || !engine.supported()) continue;
            const Outcome outcome = outcomeOf(engine, *m_context, mode, stream);
            EXPECT_EQ(outcome, expected) << engine.name << ", mode " << mode;
        }
        return expected.code;
    }
    void expectSame(std::initializer_list<int32_t> modes, const Bytes& stream) {
        for (int32_t mode : modes) expectSame(mode, stream);
    }

    TestContext m_context;
    std::mt19937 m_random{12345};
    uint32_t random(uint32_t below) { return m_random() % below; }
    int32_t randomValue(int32_t most) {
        return static_cast<int32_t>(random(2 * static_cast<uint32_t>(most) + 1)) - most;
    }
};

constexpr Sampling kSamplings[] = {Sampling::k444, Sampling::k422, Sampling::k420};
// One format of each reduction for a picture of 160 x 120 or a little more: 1, 2, 4, 8.
constexpr int32_t kModeOfReduction[] = {10, 11, 12, 13};

Bytes pictureStream(uint32_t width, uint32_t height, Sampling sampling, uint32_t coarseness,
                    uint16_t restartInterval = 0) {
    EncodeOptions options;
    options.sampling = sampling;
    options.coarseness = coarseness;
    options.restartInterval = restartInterval;
    return encodePicture(makePicture(width, height, width + coarseness), options);
}

// The data between the scan header and the end of a stream with one scan.
Bytes scanOf(const Bytes& stream) {
    constexpr uint8_t kStart[] = {0xFF, 0xDA};
    constexpr ptrdiff_t kHeaderBytes = 2 + 12;
    const auto header = std::search(stream.begin(), stream.end(), std::begin(kStart), std::end(kStart));
    return Bytes(header + kHeaderBytes, stream.end() - 2);
}

TEST_F(Engines, PicturesOfAllSizesSamplingsAndModes) {
    struct Size {
        uint32_t width, height;
    };
    for (const Size& size : {Size{320, 240}, {160, 120}, {640, 480}, {1280, 960}, {24, 16}, {333, 251}}) {
        for (Sampling sampling : kSamplings) {
            for (uint32_t coarseness : {2, 7, 40}) {
                if (size.width > 640 && coarseness != 7) continue;
                const Bytes stream = pictureStream(size.width, size.height, sampling, coarseness);
                expectSame({1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13}, stream);
            }
        }
    }
}

TEST_F(Engines, RestartIntervals) {
    for (Sampling sampling : kSamplings) {
        for (uint16_t interval : {1, 2, 7, 40}) {
            const Bytes stream = pictureStream(160, 120, sampling, 5, interval);
            for (int32_t mode : kModeOfReduction) expectSame(mode, stream);
        }
    }
}

// Scan data of any kind behind the headers that precede the card's frames.
TEST_F(Engines, NoiseBehindThePreviewHeaders) {
    constexpr int32_t kModes[] = {1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13};
    for (uint32_t round = 0; round < 300; ++round) {
        const PreviewHeader& header = *FindPreviewHeader(1 + static_cast<int32_t>(round % 3));
        Bytes stream(header.begin(), header.end());
        const uint32_t count = 1 + random(3000);
        // From streams full of 0xFF to such without one.
        const uint32_t mask = round % 4 == 0 ? 0 : random(256);
        for (uint32_t n = 0; n < count; ++n)
            stream.push_back(static_cast<uint8_t>(random(256) | (random(4) == 0 ? mask : 0)));
        expectSame(kModes[round % 12], stream);
    }
}

TEST_F(Engines, CutAtEveryByte) {
    for (Sampling sampling : kSamplings) {
        const Bytes whole = pictureStream(48, 32, sampling, 6);
        for (size_t size = 0; size < whole.size(); ++size) {
            const Bytes stream(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
            expectSame(size % 2 == 0 ? 10 : 13, stream);
        }
    }
}

TEST_F(Engines, FlippedBitsAndStrayMarkers) {
    for (Sampling sampling : kSamplings) {
        const Bytes whole = pictureStream(160, 120, sampling, 6, sampling == Sampling::k422 ? 9 : 0);
        for (uint32_t round = 0; round < 300; ++round) {
            Bytes stream = whole;
            for (uint32_t flips = random(4); flips != 0; --flips) {
                stream[random(static_cast<uint32_t>(stream.size()))] ^= static_cast<uint8_t>(1u << random(8));
            }
            if (round % 3 == 0) {
                const uint32_t place = 200 + random(static_cast<uint32_t>(stream.size()) - 202);
                stream[place] = 0xFF;
                stream[place + 1] = round % 2 == 0 ? 0xFF : static_cast<uint8_t>(random(256));
            }
            expectSame(kModeOfReduction[round % 4], stream);
        }
    }
}

// The second scan finds its tables prescaled at reduction 4; another frame header in between may even bring
// prescaled tables to another reduction.
TEST_F(Engines, MoreScansThanOne) {
    for (Sampling sampling : kSamplings) {
        const Bytes first = pictureStream(160, 120, sampling, 6);
        const Bytes scan = scanOf(first);
        const Bytes header = JpegStream().frame(80, 64, sampling).bytes();
        for (int32_t mode : kModeOfReduction) {
            JpegStream twice;
            twice.raw(Bytes(first.begin(), first.end() - 2)).scanHeader().raw(scan).end();
            expectSame(mode, twice.bytes());
            JpegStream smaller;
            smaller.raw(Bytes(first.begin(), first.end() - 2)).raw(header).scanHeader().raw(scan).end();
            expectSame(mode, smaller.bytes());
        }
    }
}

// Coefficients as large as the codes allow times steps as large as the table allows, DC values far beyond.
TEST_F(Engines, CoefficientsOutOfAllBounds) {
    for (uint32_t round = 0; round < 400; ++round) {
        const Sampling sampling = kSamplings[round % 3];
        const uint32_t step = round % 5 == 0 ? 255 : round % 5 == 1 ? 0 : 1 + random(60);
        const int32_t most = 1 << random(11);
        ScanWriter writer;
        int32_t predictors[3] = {};
        const uint32_t luma = lumaAcross(sampling) * lumaDown(sampling);
        for (uint32_t mcu = 0; mcu < 60; ++mcu) {
            for (uint32_t n = 0; n < luma + 2; ++n) {
                const uint32_t component = n < luma ? 0 : n - luma + 1;
                Block block{};
                block[0] = predictors[component] + randomValue(round % 2 == 0 ? 2047 : most);
                for (uint32_t count = random(64); count != 0; --count) {
                    block[random(63) + 1] = randomValue(most > 1023 ? 1023 : most);
                }
                writer.block(component != 0, block, predictors[component]);
            }
        }
        const JpegStream stream = JpegStream::untilScan(80, 48, sampling, static_cast<uint8_t>(step));
        expectSame(kModeOfReduction[round / 3 % 4], JpegStream(stream).raw(writer.bytes()).end().bytes());
        expectSame(8, JpegStream(stream).raw(writer.bytes()).end().bytes());
    }
}

// Blocks that end with their last coefficient, with a run of zeros up to it or past it, or just before it.
TEST_F(Engines, BlocksThatEndAtTheirLastCoefficient) {
    for (uint32_t round = 0; round < 300; ++round) {
        ScanWriter writer;
        for (uint32_t n = 0; n < 180; ++n) {
            const bool chroma = n % 3 != 0;
            writer.dc(chroma, randomValue(20));
            uint32_t k = 1;
            const uint32_t target = 58 + random(6);
            while (k < target) {
                const uint32_t left = target - k;
                const uint32_t run = random(4) == 0 ? random(16) : random(3);
                if (run < left) {
                    writer.ac(chroma, run, random(2) == 0 ? 1 : randomValue(40) | 1);
                    k += run + 1;
                } else {
                    writer.ac(chroma, left - 1, -1);
                    k += left;
                }
            }
            // Now k is 58..63: on to the end in one of several ways.
            switch (random(4)) {
                case 0:
                    writer.ac(chroma, 63 - k, 1);
                    break;
                case 1:
                    writer.zeroRun(chroma);
                    break;
                case 2:
                    writer.ac(chroma, 15, 3);
                    break;
                default:
                    writer.endOfBlock(chroma);
            }
        }
        JpegStream stream = JpegStream::untilScan(80, 48, Sampling::k444);
        stream.raw(writer.bytes()).end();
        expectSame({8, 10, 11, 12, 13}, stream.bytes());
    }
}

TEST(EngineList, BeginsWithThePortableOneAndChoosesTheLastSupported) {
    const jpeg::ScanEngineList engines = jpeg::scanEngines();
    ASSERT_GE(engines.count, 1u);
    EXPECT_STREQ(engines.engines[0].name, "portable");
    const jpeg::ScanEngine* last = nullptr;
    for (const jpeg::ScanEngine& engine : engines) {
        if (engine.supported()) last = &engine;
    }
    EXPECT_EQ(&jpeg::fastestScanEngine(), last);
    TestContext context;
    EXPECT_EQ(context->engine, last);
}

}  // namespace
