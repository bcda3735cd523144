// 32 bytes of lanes in one AVX2 register, for the kernels of the fast engines.
//
// Every operation works on two halves of 16 bytes each by itself, as AVX2's do: what is packed, shuffled or
// interleaved stays in its half. The names are those of the other set of lanes, so that one text of a kernel
// serves both.
#pragma once
#include <immintrin.h>

#include <cstdint>

namespace jpeg {

struct Avx2Lanes {
    using Half = __m128i;
    using Wide = __m256i;

    // From an address that is a multiple of 32.
    static Wide load(const int16_t* from) { return _mm256_load_si256(reinterpret_cast<const Wide*>(from)); }
    static Wide loadBytes(const uint8_t* from) {
        return _mm256_loadu_si256(reinterpret_cast<const Wide*>(from));
    }
    static void store(void* to, Wide a) { _mm256_storeu_si256(static_cast<Wide*>(to), a); }
    static Wide both(Half a) { return _mm256_broadcastsi128_si256(a); }
    static Wide all16(int16_t value) { return _mm256_set1_epi16(value); }
    static Wide onlyFirst32(int32_t value) { return _mm256_zextsi128_si256(_mm_cvtsi32_si128(value)); }
    static Half low(Wide a) { return _mm256_castsi256_si128(a); }
    static Half high(Wide a) { return _mm256_extracti128_si256(a, 1); }
    static Wide joinLow(Wide a, Wide b) { return _mm256_permute2x128_si256(a, b, 0x20); }
    static Wide joinHigh(Wide a, Wide b) { return _mm256_permute2x128_si256(a, b, 0x31); }
    static Wide widen8(Half bytes) { return _mm256_cvtepu8_epi16(bytes); }
    // two products of 16-bit lanes each, added
    static Wide madd(Wide a, Wide b) { return _mm256_madd_epi16(a, b); }
    static Wide add32(Wide a, Wide b) { return _mm256_add_epi32(a, b); }
    static Wide sub32(Wide a, Wide b) { return _mm256_sub_epi32(a, b); }
    // to 16 bits, saturated
    static Wide pack32(Wide a, Wide b) { return _mm256_packs_epi32(a, b); }
    static Wide add16(Wide a, Wide b) { return _mm256_add_epi16(a, b); }
    static Wide addSaturated16(Wide a, Wide b) { return _mm256_adds_epi16(a, b); }
    static Wide sub16(Wide a, Wide b) { return _mm256_sub_epi16(a, b); }
    static Wide multiply16(Wide a, Wide b) { return _mm256_mullo_epi16(a, b); }
    // (a * b) >> 16
    static Wide multiplyHigh16(Wide a, Wide b) { return _mm256_mulhi_epi16(a, b); }
    // a, its negative or 0, as b is above, below or 0
    static Wide sign16(Wide a, Wide b) { return _mm256_sign_epi16(a, b); }
    // (a * b + 2 ** 14) >> 15
    static Wide multiplyRounded16(Wide a, Wide b) { return _mm256_mulhrs_epi16(a, b); }
    static Wide min16(Wide a, Wide b) { return _mm256_min_epi16(a, b); }
    static Wide max16(Wide a, Wide b) { return _mm256_max_epi16(a, b); }
    // to bytes, saturated
    static Wide pack16(Wide a, Wide b) { return _mm256_packus_epi16(a, b); }
    static Wide bits(Wide a, Wide b) { return _mm256_and_si256(a, b); }
    static Wide either(Wide a, Wide b) { return _mm256_or_si256(a, b); }
    static Wide interleaveLow8(Wide a, Wide b) { return _mm256_unpacklo_epi8(a, b); }
    static Wide interleaveHigh8(Wide a, Wide b) { return _mm256_unpackhi_epi8(a, b); }
    static Wide interleaveLow16(Wide a, Wide b) { return _mm256_unpacklo_epi16(a, b); }
    static Wide interleaveHigh16(Wide a, Wide b) { return _mm256_unpackhi_epi16(a, b); }
    static Wide interleaveLow32(Wide a, Wide b) { return _mm256_unpacklo_epi32(a, b); }
    static Wide interleaveHigh32(Wide a, Wide b) { return _mm256_unpackhi_epi32(a, b); }
    static Wide interleaveLow64(Wide a, Wide b) { return _mm256_unpacklo_epi64(a, b); }
    static Wide interleaveHigh64(Wide a, Wide b) { return _mm256_unpackhi_epi64(a, b); }
    // The two 64-bit lanes of each half exchanged.
    static Wide swapped64(Wide a) { return _mm256_shuffle_epi32(a, 0x4E); }
    static Wide abs16(Wide a) { return _mm256_abs_epi16(a); }
    template <int kBits>
    static Wide right32(Wide a) {
        return _mm256_srai_epi32(a, kBits);
    }
    template <int kBits>
    static Wide right16(Wide a) {
        return _mm256_srai_epi16(a, kBits);
    }
    template <int kBits>
    static Wide left16(Wide a) {
        return _mm256_slli_epi16(a, kBits);
    }
    // The even, the odd 32-bit lanes of a, then of b.
    static Wide even32(Wide a, Wide b) { return chosen<0x88>(a, b); }
    static Wide odd32(Wide a, Wide b) { return chosen<0xDD>(a, b); }
    // Of every two 16-bit lanes the first, twice.
    static Wide repeatEven16(Wide a) { return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(a, 0xA0), 0xA0); }
    static Wide shuffle8(Wide a, Half places) { return _mm256_shuffle_epi8(a, both(places)); }

  private:
    template <int kLanes>
    static Wide chosen(Wide a, Wide b) {
        return _mm256_castps_si256(_mm256_shuffle_ps(_mm256_castsi256_ps(a), _mm256_castsi256_ps(b), kLanes));
    }
};

}  // namespace jpeg
