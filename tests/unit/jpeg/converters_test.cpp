// Colour, scaling and margins, on planes that are filled by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "jpeg/converters.h"
#include "support/decode_run.h"

namespace {

// Sample of a plane (0 = Y, 1 = Cb, 2 = Cr) at its own column and row.
using Fill = std::function<uint8_t(int plane, uint32_t x, uint32_t y)>;

// A reduced picture that stands ready in its planes, as if one MCU row were the whole of it.
class Planes {
  public:
    Planes(uint32_t width, uint32_t height, Sampling sampling, const Fill& fill) {
        const uint32_t chromaWidth = width / lumaAcross(sampling);
        const uint32_t chromaHeight = height / lumaDown(sampling);
        for (int plane = 0; plane < 3; ++plane) {
            const uint32_t across = plane == 0 ? width : chromaWidth;
            const uint32_t down = plane == 0 ? height : chromaHeight;
            for (uint32_t i = 0; i < across * down; ++i) {
                m_samples[plane].push_back(fill(plane, i % across, i / across));
            }
        }
        DecoderContext& c = *context;
        c.scaledWidth = width;
        c.scaledHeight = height;
        c.samplingKind = sampling == Sampling::k444 ? 2 : sampling == Sampling::k422 ? 1 : 0;
        c.scaleDiv = 1;
        c.chromaWidth = chromaWidth;
        c.yPlane = m_samples[0].data();
        c.cbPlane = m_samples[1].data();
        c.crPlane = m_samples[2].data();
    }

    // Converts in strips of `stripRows`; each strip's planes begin where the one before ended.
    Bytes convert(int32_t mode, uint32_t stripRows) {
        DecoderContext& c = *context;
        Bytes picture = begin(mode);
        code = mode == 7 ? (jpeg::beginLumaPicture(c), kDecodeOk) : jpeg::beginPicture(c);
        if (code != kDecodeOk) return {};
        const uint32_t chromaRows = c.samplingKind == 0 ? stripRows / 2 : stripRows;
        for (uint32_t row = 0; row < c.scaledHeight; row += stripRows) {
            jpeg::convertRows(c, stripRows);
            c.yPlane += stripRows * c.scaledWidth;
            c.cbPlane += chromaRows * c.chromaWidth;
            c.crPlane += chromaRows * c.chromaWidth;
        }
        deliveredByRows = c.cursors.outputBytes;
        jpeg::finishPicture(c);
        EXPECT_EQ(c.cursors.outputBytes, picture.size());
        EXPECT_EQ(c.cursors.outputCursor, picture.data() + picture.size());
        return picture;
    }

    TestContext context;
    uint32_t code = kDecodeOk;
    uint32_t deliveredByRows = 0;

  private:
    Bytes begin(int32_t mode) {
        DecoderContext& c = *context;
        const TargetPicture target = targetPicture(mode);
        Bytes picture(target.totalBytes, 0xEE);
        c.mode = static_cast<uint16_t>(mode);
        c.targetWidth = target.width;
        c.targetHeight = target.height;
        c.targetPixelBytes = target.bytesPerPixel;
        c.targetRowBytes = target.rowBytes;
        c.targetBytes = target.totalBytes;
        c.cursors.outputBytes = 0;
        c.cursors.outputCursor = picture.data();
        return picture;
    }
    Bytes m_samples[3];
};

struct Rgb {
    int r, g, b;
    bool operator==(const Rgb& other) const { return r == other.r && g == other.g && b == other.b; }
};

int clampQuarter(int quarters) {
    return quarters < 0 ? 0 : quarters > 1019 ? 255 : quarters / 4;
}

// The colour of a sample triple, computed apart from the decoder's tables.
Rgb colour(int y, int cb, int cr) {
    const auto share = [](double factor, int sample) {
        return static_cast<int>(std::lround(4 * factor * (sample - 128)));
    };
    return {clampQuarter(4 * y + share(1.402, cr)),
            clampQuarter(4 * y + share(-0.34414, cb) + share(-0.714136, cr)),
            clampQuarter(4 * y + share(1.772, cb))};
}

Rgb pixelAt(const Bytes& picture, int32_t mode, uint32_t x, uint32_t y) {
    const TargetPicture target = targetPicture(mode);
    const uint8_t* at = picture.data() + y * target.rowBytes + x * target.bytesPerPixel;
    if (target.bytesPerPixel == 3) return {at[2], at[1], at[0]};
    const int word = at[0] | at[1] << 8;
    return {word >> 11 << 3, (word >> 5 & 63) << 2, (word & 31) << 3};
}

// What a mode shows of a colour.
Rgb shown(const Rgb& colour, int32_t mode) {
    return mode > 7 ? colour : Rgb{colour.r & 0xF8, colour.g & 0xFC, colour.b & 0xF8};
}

std::ostream& operator<<(std::ostream& out, const Rgb& c) {
    return out << c.r << "," << c.g << "," << c.b;
}

// Different values everywhere, close to the middle so that few clamp.
uint8_t pattern(int plane, uint32_t x, uint32_t y) {
    return static_cast<uint8_t>(60 + (x * 7 + y * 13 + static_cast<uint32_t>(plane) * 50) % 130);
}

// Checks a whole picture against the source columns and rows that its pixels come from; -1 = black.
void expectPicture(const Bytes& picture, int32_t mode, Sampling sampling,
                   const std::function<int(uint32_t)>& column, const std::function<int(uint32_t)>& row,
                   bool firstPairOfFour = false) {
    const TargetPicture target = targetPicture(mode);
    for (uint32_t y = 0; y < target.height; ++y) {
        for (uint32_t x = 0; x < target.width; ++x) {
            const int sx = column(x);
            const int sy = row(y);
            Rgb expected{0, 0, 0};
            if (sx >= 0 && sy >= 0) {
                const auto ux = static_cast<uint32_t>(sx);
                const auto uy = static_cast<uint32_t>(sy);
                const uint32_t base = firstPairOfFour && sampling != Sampling::k444 ? ux / 4 * 4 : ux;
                const uint32_t cx = base / lumaAcross(sampling);
                const uint32_t cy = uy / lumaDown(sampling);
                expected = shown(colour(pattern(0, ux, uy), pattern(1, cx, cy), pattern(2, cx, cy)), mode);
            }
            ASSERT_EQ(pixelAt(picture, mode, x, y), expected) << mode << ": " << x << ", " << y;
        }
    }
}

constexpr Sampling kSamplings[] = {Sampling::k444, Sampling::k422, Sampling::k420};
const auto same = [](uint32_t i) { return static_cast<int>(i); };

Rgb onePixel(int32_t mode, uint8_t y, uint8_t cb, uint8_t cr) {
    const TargetPicture target = targetPicture(mode);
    Planes planes(target.width, target.height, Sampling::k444, [=](int plane, uint32_t, uint32_t) {
        return plane == 0 ? y : plane == 1 ? cb : cr;
    });
    return pixelAt(planes.convert(mode, 1), mode, 3, 2);
}

}  // namespace

TEST(Colour, Extremes) {
    EXPECT_EQ(onePixel(13, 0, 128, 128), (Rgb{0, 0, 0}));
    EXPECT_EQ(onePixel(13, 255, 128, 128), (Rgb{255, 255, 255}));
    EXPECT_EQ(onePixel(13, 255, 128, 255).r, 255);
    EXPECT_EQ(onePixel(13, 0, 0, 128).b, 0);
    EXPECT_EQ(onePixel(6, 0, 128, 128), (Rgb{0, 0, 0}));
    EXPECT_EQ(onePixel(6, 255, 128, 128), (Rgb{0xF8, 0xFC, 0xF8}));
    EXPECT_EQ(onePixel(13, 100, 0, 255), colour(100, 0, 255));
}

TEST(Colour, WordsAreLittleEndian) {
    Planes planes(20, 15, Sampling::k444,
                  [](int plane, uint32_t, uint32_t) { return plane == 0 ? 120 : 200; });
    const Bytes picture = planes.convert(6, 5);
    const Rgb c = colour(120, 200, 200);
    const int word = (c.r >> 3) << 11 | (c.g >> 2) << 5 | c.b >> 3;
    EXPECT_EQ(picture[0], word & 0xFF);
    EXPECT_EQ(picture[1], word >> 8);
}

TEST(Exact, EveryLayoutAndFormat) {
    for (Sampling sampling : kSamplings) {
        for (int32_t mode : {4, 11}) {
            Planes planes(80, 60, sampling, pattern);
            const Bytes picture = planes.convert(mode, sampling == Sampling::k420 ? 4 : 1);
            expectPicture(picture, mode, sampling, same, same);
        }
    }
}

TEST(Exact, ModesFourAndElevenTakeNothingElse) {
    for (int32_t mode : {4, 11}) {
        Planes wider(88, 60, Sampling::k444, pattern);
        wider.convert(mode, 1);
        EXPECT_EQ(wider.code, kDecodeUnsupported);
        Planes higher(80, 64, Sampling::k444, pattern);
        higher.convert(mode, 1);
        EXPECT_EQ(higher.code, kDecodeUnsupported);
        Planes larger(160, 120, Sampling::k444, pattern);
        larger.convert(mode, 1);
        EXPECT_EQ(larger.code, kDecodeUnsupported);
    }
}

TEST(ThreeQuarter, EveryLayoutAndFormat) {
    const auto kept = [](uint32_t i) { return static_cast<int>(i / 3 * 4 + i % 3); };
    for (Sampling sampling : kSamplings) {
        for (int32_t mode : {2, 9}) {
            Planes planes(320, 240, sampling, pattern);
            expectPicture(planes.convert(mode, 16), mode, sampling, kept, kept, true);
        }
    }
}

TEST(ThreeQuarter, GroupsOfRowsRunThroughThePicture) {
    // Strips of two rows, as at reduction 4: a group of four rows goes over two of them.
    const auto kept = [](uint32_t i) { return static_cast<int>(i / 3 * 4 + i % 3); };
    for (Sampling sampling : kSamplings) {
        Planes planes(320, 240, sampling, pattern);
        expectPicture(planes.convert(9, 2), 9, sampling, kept, kept, true);
    }
}

TEST(ThreeQuarter, FirstChromaPairServesThreePixels) {
    Planes planes(320, 240, Sampling::k420, [](int plane, uint32_t x, uint32_t) -> uint8_t {
        return plane == 0 ? 128 : x % 2 == 0 ? 128 : 250;  // every second pair is strongly coloured
    });
    for (uint8_t byte : planes.convert(9, 16)) ASSERT_EQ(byte, 128);
}

TEST(ThreeQuarter, NeverAtReductionEight) {
    Planes planes(320, 240, Sampling::k444, pattern);
    planes.context->scaleDiv = 8;
    // The general converter takes the columns 0, 1 and 3 of four.
    const auto taken = [](uint32_t i) { return static_cast<int>(i / 3 * 4 + (i % 3 == 2 ? 3 : i % 3)); };
    expectPicture(planes.convert(9, 1), 9, Sampling::k444, taken, taken);
}

TEST(General, HalfSize) {
    // Step 2048: the first unit makes column 0 due, then every second one from the middle on.
    for (Sampling sampling : kSamplings) {
        for (int32_t mode : {3, 10}) {
            Planes planes(320, 240, sampling, pattern);
            const auto taken = [](uint32_t i) { return static_cast<int>(2 * i); };
            expectPicture(planes.convert(mode, 8), mode, sampling, taken, taken);
        }
    }
}

TEST(General, TakesTheNearestColumns) {
    // Any reduction: pixel i shows the first column whose middle lies past i whole units. At 608 columns one
    // middle lies exactly there.
    struct Size {
        uint32_t width, height;
    };
    for (const Size& size : {Size{400, 300}, Size{608, 456}}) {
        Planes planes(size.width, size.height, Sampling::k444, pattern);
        const uint32_t step = 320 * 4096 / size.width;
        const auto taken = [&](uint32_t i) {
            int x = 0;
            while (static_cast<uint32_t>(x) * step + step / 2 <= i * 4096) ++x;
            return x;
        };
        expectPicture(planes.convert(8, 4), 8, Sampling::k444, taken, taken);
    }
}

TEST(General, MarginsLeftAndRight) {
    // 1280 x 1024 at reduction 4 in mode 9: 7 black columns, 225 of picture, 8 black.
    Planes planes(320, 256, Sampling::k420, pattern);
    const Bytes picture = planes.convert(9, 4);
    const TargetPicture target = targetPicture(9);
    for (uint32_t y = 0; y < target.height; ++y) {
        for (uint32_t x = 0; x < target.width; ++x) {
            const bool black = pixelAt(picture, 9, x, y) == Rgb{0, 0, 0};
            ASSERT_EQ(black, x < 7 || x >= 232) << x << ", " << y;
        }
    }
    EXPECT_EQ(planes.context->padColumns, 7u);
    // 320 x 264 in mode 8: 290.9 columns count as 291, which leaves 29.
    Planes fraction(320, 264, Sampling::k444, pattern);
    fraction.convert(8, 8);
    EXPECT_EQ(fraction.context->padColumns, 14u);
    EXPECT_EQ(planes.context->padRows, 0u);
}

TEST(General, MarginsAboveAndBelow) {
    // 320 x 200 in mode 8 stands between 20 black rows above and as many below.
    Planes planes(320, 200, Sampling::k444, pattern);
    const auto row = [](uint32_t y) { return y < 20 || y >= 220 ? -1 : static_cast<int>(y) - 20; };
    expectPicture(planes.convert(8, 8), 8, Sampling::k444, same, row);
    EXPECT_EQ(planes.deliveredByRows, 220u * 960);
    // 184 rows leave 56: 28 and 28; 240 x 184 in mode 9 is too high by 4, so that columns are spare.
    Planes odd(320, 232, Sampling::k444, pattern);
    const auto less = [](uint32_t y) { return y < 4 || y >= 236 ? -1 : static_cast<int>(y) - 4; };
    expectPicture(odd.convert(1, 8), 1, Sampling::k444, same, less);
}

TEST(General, TheOddSpareRowComesLast) {
    Planes planes(640, 480 - 2, Sampling::k444, pattern);  // 239 rows of 240
    planes.convert(8, 2);
    EXPECT_EQ(planes.context->padRows, 0u);
    EXPECT_EQ(planes.deliveredByRows, 239u * 960);
}

TEST(General, SmallerSourcesFillThePicture) {
    const auto doubled = [](uint32_t i) { return static_cast<int>(i / 2); };
    for (Sampling sampling : kSamplings) {
        Planes planes(160, 120, sampling, pattern);
        expectPicture(planes.convert(8, 8), 8, sampling, doubled, doubled);
    }
    // Another shape is enlarged as far as it goes and centred.
    Planes square(120, 120, Sampling::k444, pattern);
    const auto centred = [](uint32_t x) { return x < 40 || x >= 280 ? -1 : static_cast<int>(x - 40) / 2; };
    expectPicture(square.convert(8, 8), 8, Sampling::k444, centred, doubled);
    Planes tiny(8, 8, Sampling::k444, [](int plane, uint32_t, uint32_t) { return plane == 0 ? 200 : 128; });
    const Bytes picture = tiny.convert(8, 8);
    for (uint32_t x = 0; x < 320; ++x) {
        ASSERT_EQ(pixelAt(picture, 8, x, 239).r, x < 40 || x >= 280 ? 0 : 200) << x;
    }
}

TEST(General, LumaAlone) {
    Planes planes(320, 240, Sampling::k420, pattern);
    const Bytes picture = planes.convert(7, 240);
    const auto taken = [](uint32_t i) { return i / 3 * 4 + (i % 3 == 2 ? 3 : i % 3); };
    for (uint32_t i = 0; i < 240 * 180; ++i) {
        ASSERT_EQ(picture[i], pattern(0, taken(i % 240), taken(i / 240))) << i;
    }
}
