#include "handheld/loader/image.h"

#include <cstring>

#include "handheld/loader/imports.h"
#include "handheld/loader/pe_records.h"
#include "handheld/loader/system_calls.h"

// Written by link_loader.py: addresses are those at the image's own base.
extern "C" const ImageSymbol kImageSymbols[];
extern "C" const ImageSymbol kImageSymbolsEnd[];
extern "C" uint32_t kDoors[];
extern "C" uint32_t kDoorsEnd[];

namespace {

constexpr uint32_t kMostFileBytes = 4u << 20;
constexpr uint32_t kMostSections = 16;

Image g_image;
PeSection g_sections[kMostSections];
uint32_t g_sectionCount;

// The file's bytes, in pages of their own.
struct File {
    uint8_t* bytes;
    uint32_t size;
};

File ReadFile(const char* path) {
    auto* const room = static_cast<uint8_t*>(sys::Map(0, kMostFileBytes, sys::kReadWrite));
    const int file = sys::Open(path);
    if (file < 0 || room == nullptr) Stop(Line() << "cannot open " << path);
    uint32_t size = 0;
    while (size < kMostFileBytes) {
        const int got = sys::Read(file, room + size, kMostFileBytes - size);
        if (got < 0) Stop(Line() << "cannot read " << path);
        if (got == 0) break;
        size += static_cast<uint32_t>(got);
    }
    sys::Close(file);
    return {room, size};
}

uint8_t* At(uint32_t rva) {
    if (rva >= g_image.bytes) Stop(Line() << "the image points behind its end, to " << Hex{rva});
    return reinterpret_cast<uint8_t*>(g_image.base + rva);
}

uint32_t* WordAt(uint32_t rva) {
    if (rva % 4 != 0) Stop(Line() << "the image has a word at " << Hex{rva} << ", which is not aligned");
    return reinterpret_cast<uint32_t*>(At(rva));
}

const PeHeaders& HeadersIn(const File& file) {
    uint32_t offset = 0;
    if (file.size >= 0x40) std::memcpy(&offset, file.bytes + 0x3C, sizeof offset);
    if (offset == 0 || offset % 4 != 0 || offset > file.size || file.size - offset < sizeof(PeHeaders))
        Stop(Line() << "the file has no headers of an executable");
    const auto& headers = *reinterpret_cast<const PeHeaders*>(file.bytes + offset);
    if (headers.signature != kPeSignature || headers.machine != kPeArm ||
        headers.optionalBytes != kPeOptionalBytes || headers.sectionCount > kMostSections)
        Stop(Line() << "the file is no executable for ARM");
    return headers;
}

void CopySections(const File& file, const PeHeaders& headers) {
    std::memcpy(At(0), file.bytes, headers.headerBytes);
    g_sectionCount = headers.sectionCount;
    std::memcpy(g_sections, &headers + 1, g_sectionCount * sizeof(PeSection));
    for (uint32_t i = 0; i < g_sectionCount; ++i) {
        const PeSection& section = g_sections[i];
        const uint32_t bytes = section.fileBytes < section.bytes ? section.fileBytes : section.bytes;
        if (section.fileOffset > file.size || bytes > file.size - section.fileOffset)
            Stop(Line() << "a section lies behind the end of the file");
        if (section.bytes > g_image.bytes - section.rva)
            Stop(Line() << "a section lies behind the image's end");
        std::memcpy(At(section.rva), file.bytes + section.fileOffset, bytes);
    }
}

void Relocate(uint32_t rva, uint32_t bytes) {
    const uint32_t distance = g_image.base - g_image.preferredBase;
    for (uint32_t at = rva; distance != 0 && at < rva + bytes;) {
        const uint32_t page = WordAt(at)[0];
        const uint32_t blockBytes = WordAt(at)[1];
        if (blockBytes < 8 || blockBytes > rva + bytes - at)
            Stop(Line() << "a block of base relocations has no end");
        const auto* const entries = reinterpret_cast<const uint16_t*>(At(at + 8));
        for (uint32_t i = 0; i < (blockBytes - 8) / 2; ++i) {
            const uint32_t kind = entries[i] >> 12;
            if (kind == kPeWholeWord)
                *WordAt(page + (entries[i] & 0xFFF)) += distance;
            else if (kind != 0)
                Stop(Line() << "a base relocation of kind " << kind);
        }
        at += blockBytes;
    }
}

void Bind(uint32_t rva) {
    for (;; rva += sizeof(PeImport)) {
        const auto& row = *reinterpret_cast<const PeImport*>(WordAt(rva));
        if (row.library == 0) return;
        const char* const library = reinterpret_cast<const char*>(At(row.library));
        for (uint32_t i = 0;; ++i) {
            const uint32_t name = *WordAt(row.names + 4 * i);
            if (name == 0) break;
            *WordAt(row.words + 4 * i) = (name & kPeOrdinal) != 0
                                             ? DoubleOfOrdinal(library, name & ~kPeOrdinal)
                                             : DoubleOf(library, reinterpret_cast<const char*>(At(name)) + 2);
        }
    }
}

void ProtectSections() {
    sys::Protect(At(0), g_sections[0].rva, sys::kRead);
    for (uint32_t i = 0; i < g_sectionCount; ++i) {
        const PeSection& section = g_sections[i];
        const uint32_t bytes = (section.bytes + sys::kPage - 1) / sys::kPage * sys::kPage;
        const bool writable = (section.flags & kPeWrite) != 0, executable = (section.flags & kPeExecute) != 0;
        if (writable && executable) Stop(Line() << "a section is both code and writable");
        const sys::Protection protection = (section.flags & kPeDiscardable) != 0 ? sys::kNone
                                           : executable                          ? sys::kReadExecute
                                           : writable                            ? sys::kReadWrite
                                                                                 : sys::kRead;
        if (!sys::Protect(At(section.rva), bytes, protection))
            Stop(Line() << "a section cannot be protected");
    }
}

}  // namespace

const Image& LoadImage(const char* path, uint32_t base) {
    const File file = ReadFile(path);
    const PeHeaders& headers = HeadersIn(file);
    g_image = {base, headers.base, headers.imageBytes, base + headers.entry, headers.stackReserve};
    if (headers.headerBytes > file.size || headers.headerBytes > headers.imageBytes ||
        sys::Map(base, headers.imageBytes, sys::kReadWrite) != reinterpret_cast<void*>(base))
        Stop(Line() << "the image does not fit at " << Hex{base});
    CopySections(file, headers);
    Relocate(headers.directories[kPeRelocations].rva, headers.directories[kPeRelocations].bytes);
    Bind(headers.directories[kPeImports].rva);
    ProtectSections();
    for (uint32_t* door = kDoors; door != kDoorsEnd; ++door) *door += base - headers.base;
    sys::Unmap(file.bytes, kMostFileBytes);
    return g_image;
}

const Image& TheImage() {
    return g_image;
}

bool DescribeInImage(uint32_t address, Line& line) {
    if (address - g_image.base < g_image.bytes) {
        for (uint32_t i = 0; i < g_sectionCount; ++i) {
            if (address - g_image.base - g_sections[i].rva >= g_sections[i].bytes) continue;
            char name[9] = {};
            std::memcpy(name, g_sections[i].name, 8);
            line << "in the image's " << name;
            return true;
        }
        line << "in the image, between its sections";
        return true;
    }
    if (address - g_image.preferredBase >= g_image.bytes) return false;
    line << "where the image would lie at its own base: a base relocation is missing";
    return true;
}

ImageSymbol FindInImage(const char* name) {
    for (const ImageSymbol* symbol = kImageSymbols; symbol != kImageSymbolsEnd; ++symbol)
        if (std::strcmp(symbol->name, name) == 0)
            return {symbol->address + g_image.base - g_image.preferredBase, symbol->bytes, name};
    Stop(Line() << "the image has no " << name);
}

const ImageSymbol* SymbolAround(uint32_t address) {
    const uint32_t at = address - g_image.base + g_image.preferredBase;
    for (const ImageSymbol* symbol = kImageSymbols; symbol != kImageSymbolsEnd; ++symbol)
        if (at - symbol->address < symbol->bytes) return symbol;
    return nullptr;
}
