// The parts of an executable's headers that loading needs, as they lie in the file.
#pragma once
#include <cstdint>

struct PeHeaders {
    uint32_t signature;  // "PE", two zeros
    uint16_t machine, sectionCount;
    uint32_t time, symbolTable, symbolCount;
    uint16_t optionalBytes, fileFlags;
    // The optional header
    uint16_t magic, linkerVersion;
    uint32_t codeBytes, dataBytes, emptyBytes, entry, codeStart, dataStart;
    uint32_t base, sectionAlignment, fileAlignment;
    uint16_t systemVersion[2], imageVersion[2], subsystemVersion[2];
    uint32_t reserved, imageBytes, headerBytes, checksum;
    uint16_t subsystem, dllFlags;
    uint32_t stackReserve, stackCommit, heapReserve, heapCommit, loaderFlags, directoryCount;
    struct {
        uint32_t rva, bytes;
    } directories[16];
};
inline constexpr uint16_t kPeOptionalBytes = 224;
static_assert(sizeof(PeHeaders) == 24 + kPeOptionalBytes);

struct PeSection {
    char name[8];
    uint32_t bytes, rva, fileBytes, fileOffset, relocations, lines;
    uint16_t relocationCount, lineCount;
    uint32_t flags;
};
static_assert(sizeof(PeSection) == 40);

struct PeImport {
    uint32_t names, time, forwarder, library, words;
};

inline constexpr uint32_t kPeSignature = 0x4550;
inline constexpr uint16_t kPeArm = 0x1C0;
inline constexpr uint32_t kPeImports = 1, kPeRelocations = 5;  // places in the table of directories
inline constexpr uint32_t kPeExecute = 0x20000000, kPeWrite = 0x80000000, kPeDiscardable = 0x02000000;
inline constexpr uint32_t kPeOrdinal = 0x80000000;
inline constexpr uint16_t kPeWholeWord = 3;  // kind of a base relocation; 0 only fills up
