// The JPEG headers that go before the card's bare scan data: SOI, two quantisation tables, frame and scan
// header. They differ in the size of the frame and the sampling of its luma.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

inline constexpr size_t kPreviewHeaderBytes = 170;
using PreviewHeader = std::array<uint8_t, kPreviewHeaderBytes>;

// Template 1: 320 x 240, 4:4:4.  2: 320 x 240, 4:2:0.  3: 160 x 120, 4:4:4.  Null for any other number.
const PreviewHeader* FindPreviewHeader(int32_t number);
