// The camera program's JPEG decoder: baseline, 8 bit, three components, fixed Huffman tables, integers only.
//
// A picture is reduced by 1, 2, 4 or 8 while its blocks are transformed, then converted row by row to the
// size and the pixel format that the mode asks for:
//
//   mode 1..6    RGB565, little-endian words     320x240 240x180 160x120 80x60 40x30 20x15
//   mode 8..13   24 bit, B G R                   the same sizes
//   mode 7, 14   luma only, one byte a pixel     240x180
//
// One decode at a time; nothing here takes a lock.
#pragma once
#include <cstdint>

// What decode() returns.
enum DecodeCode : uint32_t {
    kDecodeOk = 0,
    kDecodeBadQuantTable = 1,       // 16-bit quantisation table, or a table number above 3
    kDecodeBadPrecision = 2,        // samples of other than 8 bits; also says so on the standard output
    kDecodeBadDcCode = 3,           // a DC code longer than its table has
    kDecodeBadAcCode = 4,           // an AC code longer than its table has
    kDecodeBadSpectralStart = 6,    // scan header: Ss is not 0
    kDecodeBadSpectralEnd = 7,      // scan header: Se is not 63
    kDecodeBadApproximation = 8,    // scan header: Ah, Al are not 0
    kDecodeBadRestartSegment = 9,   // DRI segment of other than 4 bytes
    kDecodeNoMemory = 10,           // no working buffer, or a declared size that none could hold
    kDecodeInputEnded = 11,         // input ended before EOI, or a marker that is not supported
    kDecodeNoFrame = 13,            // a scan before its frame header
    kDecodeUnsupported = 18,        // mode, components, sampling or size that is not supported
    kDecodeScanEndedOnMarker = 19,  // between scan and marker loop only; decode() never returns it
};

// The picture that a mode produces; all zero for a mode that does not exist.
struct TargetPicture {
    uint32_t width;
    uint32_t height;
    uint32_t bytesPerPixel;
    uint32_t rowBytes;    // rows are padded to 4 bytes in the 24-bit format
    uint32_t totalBytes;  // what the caller's picture buffer must hold
    bool planar;          // modes 7 and 14
};
TargetPicture targetPicture(int32_t mode);

// Bytes of one row; 24-bit rows are padded to a multiple of 4, as in a device-independent bitmap.
uint32_t pictureRowBytes(uint32_t width, uint32_t bytesPerPixel);

// One Huffman table, ready for decoding. Index 0 of the arrays by code length is unused.
struct HuffmanTable {
    uint8_t bits[17];         // number of codes of each length
    uint8_t huffVal[256];     // symbols in code order
    uint8_t lookLength[256];  // by the next 8 bits: length of the code that begins there, 0 = longer than 8
    uint8_t lookValue[256];   // by the next 8 bits: symbol of that code
    int32_t valOffset[17];    // index into huffVal less the code, by length
    int32_t maxCode[17];      // largest code of a length, -1 = none
    uint16_t maxLength;       // longest code of the table
};

inline constexpr uint32_t kInputChunkBytes = 40960;
inline constexpr uint32_t kComponentIds = 8;  // arrays by component id; ids 1..7 are accepted

struct DecoderContext;
struct SourceRow;
namespace jpeg {
struct ScanEngine;
}
// Converts one row of samples; returns the end of what it wrote.
using RowConverter = uint8_t* (*)(const DecoderContext& context, const SourceRow& row, uint8_t* out);

// Where the compressed bytes come from and where the picture goes.
struct DecoderCursors {
    // Set by the caller before each decode.
    const uint8_t* inputCursor = nullptr;  // next compressed byte that is not in the chunk yet
    uint32_t inputRemaining = 0;           // bytes from there on
    uint8_t* outputCursor = nullptr;       // picture buffer of totalBytes; moves on row by row
    // Kept by the decoder.
    uint32_t outputBytes = 0;  // delivered by this decode, never more than totalBytes
    const uint8_t* chunkCursor = nullptr;
    const uint8_t* chunkEnd = nullptr;
};

// All state of the decoder; the start state is the default one. The working buffer is kept between frames.
struct DecoderContext {
    DecoderCursors cursors;

    // How scans are decoded: the fastest way that this processor knows, see scan_engine.h
    const jpeg::ScanEngine* engine = nullptr;

    // The decode
    uint16_t mode = 0;
    uint32_t targetWidth = 0;
    uint32_t targetHeight = 0;
    uint32_t targetPixelBytes = 0;
    uint32_t targetRowBytes = 0;
    uint32_t targetBytes = 0;
    uint8_t frameStats[4] = {};    // feedback for the card; always zero, no statistics are taken
    uint16_t statsTuning[4] = {};  // parameters for such statistics, set when they are asked for

    // Bit reader
    uint32_t bitBuffer = 0;  // unread bits, right-aligned, the oldest highest
    int32_t bitCount = 0;    // how many

    // Tables
    HuffmanTable huffman[4] = {};      // DC luminance, DC chrominance, AC luminance, AC chrominance
    uint32_t quantTables[4][64] = {};  // natural order
    uint8_t quantTablesRead = 0;       // bit n: table n came in this decode
    uint16_t restartInterval = 0;      // MCUs between restart points, 0 = none

    // Frame header
    uint32_t imageWidth = 0;
    uint32_t imageHeight = 0;
    uint8_t componentCount = 0;
    uint8_t firstComponent = 0;         // id of the first; the others follow
    uint8_t hSamp[kComponentIds] = {};  // by component id
    uint8_t vSamp[kComponentIds] = {};  // by component id
    uint8_t quantSelector[kComponentIds] = {};
    uint32_t hMax = 0;
    uint32_t vMax = 0;
    int32_t samplingKind = -1;  // 0 = 4:2:0, 1 = 4:2:2, 2 = 4:4:4, 4 = one component
    int32_t scaleDiv = 0;       // reduction: 1, 2, 4 or 8; 0 = no frame header yet

    // Geometry
    uint32_t mcusPerRow = 0;
    uint32_t mcuRows = 0;
    uint32_t scaledWidth = 0;  // whole MCUs, after reduction
    uint32_t scaledHeight = 0;
    uint16_t mcuRowHeight = 0;  // luma rows of one MCU row, after reduction
    uint32_t planeWidth[kComponentIds] = {};
    uint8_t* planeStart[kComponentIds] = {};
    uint8_t* mcuRowBuffer = nullptr;  // planes of one MCU row; of the whole image in modes 7 and 14
    uint32_t mcuRowBytes = 0;         // used for this frame
    uint32_t mcuRowCapacity = 0;      // allocated
    const uint8_t* yPlane = nullptr;
    const uint8_t* cbPlane = nullptr;
    const uint8_t* crPlane = nullptr;
    uint32_t chromaWidth = 0;  // row length of the last two; 0 without chroma

    // Resampling; steps, limit and accumulator in units of 1/4096
    uint32_t stepX = 0;
    uint32_t stepY = 0;
    uint32_t step = 0;  // the smaller of the two, used for both axes
    int32_t limit = 0;  // a row or column is sampled while its accumulator is above
    int32_t accumY = 0;
    uint32_t padRows = 0;  // black before the picture
    uint32_t padColumns = 0;
    uint32_t rowScaling = 0;  // Scaling of the rows, see converters.h
    uint32_t sourceRow = 0;   // rows of the scan seen so far
    RowConverter convertRow = nullptr;

    uint8_t inputChunk[kInputChunkBytes];
};

// Fills the four Huffman tables and chooses the engine. Once, before the first decode. Returns the context.
DecoderContext* buildHuffmanTables(DecoderContext& context);

// Decodes one JPEG stream into the picture buffer; the caller has set the first three cursors. On any code
// but 0 the rows that were finished by then have been delivered. statsEnabled: 0, or set statsTuning for the
// card.
uint32_t decode(int32_t mode, DecoderContext& context, uint32_t statsEnabled);

// Frees the working buffer; the next decode allocates it again.
void releaseBuffers(DecoderContext& context);
