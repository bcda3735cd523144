#include "device/preview_headers.h"

#include <gtest/gtest.h>

#include "support/decode_run.h"
#include "support/scan_writer.h"

static_assert(sizeof(PreviewHeader) == 170);

namespace {

Bytes frameOf(int32_t number, const Bytes& scan) {
    const PreviewHeader& header = *FindPreviewHeader(number);
    Bytes stream(header.begin(), header.end());
    stream.insert(stream.end(), scan.begin(), scan.end());
    stream.insert(stream.end(), {0xFF, 0xD9});
    return stream;
}

}  // namespace

TEST(PreviewHeaders, ThereAreThree) {
    for (int32_t number : {-1, 0, 4}) EXPECT_EQ(FindPreviewHeader(number), nullptr);
    for (int32_t number : {1, 2, 3}) EXPECT_NE(FindPreviewHeader(number), nullptr);
}

TEST(PreviewHeaders, DifferInSizeAndSampling) {
    const PreviewHeader& first = *FindPreviewHeader(1);
    const auto differences = [&](int32_t number) {
        std::vector<size_t> places;
        for (size_t i = 0; i < first.size(); ++i) {
            if (first[i] != (*FindPreviewHeader(number))[i]) places.push_back(i);
        }
        return places;
    };
    EXPECT_EQ(differences(2), std::vector<size_t>({147}));
    EXPECT_EQ(differences(3), std::vector<size_t>({142, 143, 144}));
    EXPECT_EQ((*FindPreviewHeader(2))[147], 0x22);
}

TEST(PreviewHeaders, StrayByteBeforeScanHeader) {
    for (int32_t number : {1, 2, 3}) {
        const PreviewHeader& header = *FindPreviewHeader(number);
        EXPECT_EQ(Bytes(header.begin() + 152, header.begin() + 158), Bytes({3, 0x11, 1, 0, 0xFF, 0xDA}));
    }
}

TEST(PreviewHeaders, QuantTables) {
    const PreviewHeader& header = *FindPreviewHeader(1);
    const auto sum = [&](size_t from) {
        uint32_t total = 0;
        for (size_t i = from; i < from + 64; ++i) total += header[i];
        return total;
    };
    EXPECT_EQ(header[6], 0);
    EXPECT_EQ(header[71], 1);
    EXPECT_EQ(header[7], 7);
    EXPECT_EQ(header[7 + 48], 171);
    EXPECT_EQ(header[7 + 49], 255);
    EXPECT_EQ(header[72 + 53], 171);
    EXPECT_EQ(header[72 + 54], 255);
    EXPECT_EQ(sum(7), 7702u);
    EXPECT_EQ(sum(72), 6540u);
}

TEST(PreviewHeaders, FramesBehindThemDecode) {
    struct Case {
        int32_t number;
        uint32_t mcus;
        Sampling sampling;
        int32_t mode;
    };
    for (const Case& item : {Case{1, 1200, Sampling::k444, 9}, Case{2, 300, Sampling::k420, 9},
                             Case{3, 300, Sampling::k444, 10}}) {
        const Decoded decoded =
            runDecode(item.mode, frameOf(item.number, greyScan(item.mcus, item.sampling)));
        EXPECT_EQ(decoded.code, kDecodeOk) << item.number;
        EXPECT_EQ(decoded.picture, Bytes(targetPicture(item.mode).totalBytes, 128)) << item.number;
    }
}
