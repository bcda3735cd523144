// Dequantisation and inverse DCT of one block: 64 coefficients in natural order become 8 x 8, 4 x 4 or 2 x 2
// samples, level-shifted and clamped to 0..255. Sums wrap at 32 bits, so damaged streams do no harm.
#pragma once
#include <cstdint>

namespace jpeg {

// Rows of `out` are `stride` bytes apart.
using InverseDct = void (*)(uint8_t* out, const int32_t* coefficients, const uint32_t* quant,
                            uint32_t stride);

void inverseDct8(uint8_t* out, const int32_t* coefficients, const uint32_t* quant, uint32_t stride);
void inverseDct4(uint8_t* out, const int32_t* coefficients, const uint32_t* quant, uint32_t stride);

// The one sample of a block without AC coefficients; `dc` is dequantised.
uint8_t flatSample8(uint32_t dc);
uint8_t flatSample4(uint32_t dc);

// Expects a quantisation table that prescaleQuantTable() has been over.
void inverseDct2(uint8_t* out, const int32_t* coefficients, const uint32_t* quant, uint32_t stride);
void prescaleQuantTable(uint32_t* quant);

// The one sample that stands for a block at reduction 8: its mean. The 1024 holds the level shift already.
uint8_t blockMean(int32_t dc, uint32_t quant);

}  // namespace jpeg
