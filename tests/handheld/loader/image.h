// The handheld's executable, taken into memory as the handheld's loader does it: every section with its own
// protection, relocated when it does not lie at its base, every import bound to a test double.
#pragma once
#include <cstdint>

#include "handheld/loader/line.h"

struct Image {
    uint32_t base;           // where it lies
    uint32_t preferredBase;  // where its headers want it
    uint32_t bytes;          // from there on
    uint32_t entry;
    uint32_t stackBytes;  // what its first thread gets
};

// Ends the process with a sentence when the file is no such image.
const Image& LoadImage(const char* path, uint32_t base);

// The one that was loaded.
const Image& TheImage();

// Says of an address in which section it lies, or that it lies where the image would without a relocation.
bool DescribeInImage(uint32_t address, Line& line);

// What links the image's code to the tests: the names that the linker knew, and the doors through which tests
// call.
struct ImageSymbol {
    uint32_t address;  // at the preferred base
    uint32_t bytes;
    const char* name;
};
// Where a thing of that (mangled) name lies in the loaded image; ends the process when there is none.
ImageSymbol FindInImage(const char* name);
// The thing at or before an address, null when the address lies outside the image's code.
const ImageSymbol* SymbolAround(uint32_t address);
