// 32 bytes of lanes in two SSE registers, for the kernels of the fast engines.
//
// Every operation works on two halves of 16 bytes each by itself, as AVX2's do: what is packed, shuffled or
// interleaved stays in its half. The names are those of the other set of lanes, so that one text of a kernel
// serves both.
#pragma once
#include <smmintrin.h>

#include <cstdint>

namespace jpeg {

struct SseLanes {
    using Half = __m128i;
    struct Wide {
        Half low, high;
    };

    // From an address that is a multiple of 32.
    static Wide load(const int16_t* from) {
        const Half* const halves = reinterpret_cast<const Half*>(from);
        return {_mm_load_si128(halves), _mm_load_si128(halves + 1)};
    }
    static Wide loadBytes(const uint8_t* from) {
        const Half* const halves = reinterpret_cast<const Half*>(from);
        return {_mm_loadu_si128(halves), _mm_loadu_si128(halves + 1)};
    }
    static void store(void* to, Wide a) {
        Half* const halves = static_cast<Half*>(to);
        _mm_storeu_si128(halves, a.low);
        _mm_storeu_si128(halves + 1, a.high);
    }
    static Wide both(Half a) { return {a, a}; }
    static Wide all16(int16_t value) { return both(_mm_set1_epi16(value)); }
    static Wide onlyFirst32(int32_t value) { return {_mm_cvtsi32_si128(value), _mm_setzero_si128()}; }
    static Half low(Wide a) { return a.low; }
    static Half high(Wide a) { return a.high; }
    static Wide joinLow(Wide a, Wide b) { return {a.low, b.low}; }
    static Wide joinHigh(Wide a, Wide b) { return {a.high, b.high}; }
    static Wide widen8(Half bytes) {
        return {_mm_cvtepu8_epi16(bytes), _mm_unpackhi_epi8(bytes, _mm_setzero_si128())};
    }
    // two products of 16-bit lanes each, added
    static Wide madd(Wide a, Wide b) {
        return {_mm_madd_epi16(a.low, b.low), _mm_madd_epi16(a.high, b.high)};
    }
    static Wide add32(Wide a, Wide b) { return {_mm_add_epi32(a.low, b.low), _mm_add_epi32(a.high, b.high)}; }
    static Wide sub32(Wide a, Wide b) { return {_mm_sub_epi32(a.low, b.low), _mm_sub_epi32(a.high, b.high)}; }
    // to 16 bits, saturated
    static Wide pack32(Wide a, Wide b) {
        return {_mm_packs_epi32(a.low, b.low), _mm_packs_epi32(a.high, b.high)};
    }
    static Wide add16(Wide a, Wide b) { return {_mm_add_epi16(a.low, b.low), _mm_add_epi16(a.high, b.high)}; }
    static Wide addSaturated16(Wide a, Wide b) {
        return {_mm_adds_epi16(a.low, b.low), _mm_adds_epi16(a.high, b.high)};
    }
    static Wide sub16(Wide a, Wide b) { return {_mm_sub_epi16(a.low, b.low), _mm_sub_epi16(a.high, b.high)}; }
    static Wide multiply16(Wide a, Wide b) {
        return {_mm_mullo_epi16(a.low, b.low), _mm_mullo_epi16(a.high, b.high)};
    }
    // (a * b) >> 16
    static Wide multiplyHigh16(Wide a, Wide b) {
        return {_mm_mulhi_epi16(a.low, b.low), _mm_mulhi_epi16(a.high, b.high)};
    }
    // a, its negative or 0, as b is above, below or 0
    static Wide sign16(Wide a, Wide b) {
        return {_mm_sign_epi16(a.low, b.low), _mm_sign_epi16(a.high, b.high)};
    }
    // (a * b + 2 ** 14) >> 15
    static Wide multiplyRounded16(Wide a, Wide b) {
        return {_mm_mulhrs_epi16(a.low, b.low), _mm_mulhrs_epi16(a.high, b.high)};
    }
    static Wide min16(Wide a, Wide b) { return {_mm_min_epi16(a.low, b.low), _mm_min_epi16(a.high, b.high)}; }
    static Wide max16(Wide a, Wide b) { return {_mm_max_epi16(a.low, b.low), _mm_max_epi16(a.high, b.high)}; }
    // to bytes, saturated
    static Wide pack16(Wide a, Wide b) {
        return {_mm_packus_epi16(a.low, b.low), _mm_packus_epi16(a.high, b.high)};
    }
    static Wide bits(Wide a, Wide b) { return {_mm_and_si128(a.low, b.low), _mm_and_si128(a.high, b.high)}; }
    static Wide either(Wide a, Wide b) { return {_mm_or_si128(a.low, b.low), _mm_or_si128(a.high, b.high)}; }
    static Wide interleaveLow8(Wide a, Wide b) {
        return {_mm_unpacklo_epi8(a.low, b.low), _mm_unpacklo_epi8(a.high, b.high)};
    }
    static Wide interleaveHigh8(Wide a, Wide b) {
        return {_mm_unpackhi_epi8(a.low, b.low), _mm_unpackhi_epi8(a.high, b.high)};
    }
    static Wide interleaveLow16(Wide a, Wide b) {
        return {_mm_unpacklo_epi16(a.low, b.low), _mm_unpacklo_epi16(a.high, b.high)};
    }
    static Wide interleaveHigh16(Wide a, Wide b) {
        return {_mm_unpackhi_epi16(a.low, b.low), _mm_unpackhi_epi16(a.high, b.high)};
    }
    static Wide interleaveLow32(Wide a, Wide b) {
        return {_mm_unpacklo_epi32(a.low, b.low), _mm_unpacklo_epi32(a.high, b.high)};
    }
    static Wide interleaveHigh32(Wide a, Wide b) {
        return {_mm_unpackhi_epi32(a.low, b.low), _mm_unpackhi_epi32(a.high, b.high)};
    }
    static Wide interleaveLow64(Wide a, Wide b) {
        return {_mm_unpacklo_epi64(a.low, b.low), _mm_unpacklo_epi64(a.high, b.high)};
    }
    static Wide interleaveHigh64(Wide a, Wide b) {
        return {_mm_unpackhi_epi64(a.low, b.low), _mm_unpackhi_epi64(a.high, b.high)};
    }
    // The two 64-bit lanes of each half exchanged.
    static Wide swapped64(Wide a) {
        return {_mm_shuffle_epi32(a.low, 0x4E), _mm_shuffle_epi32(a.high, 0x4E)};
    }
    static Wide abs16(Wide a) { return {_mm_abs_epi16(a.low), _mm_abs_epi16(a.high)}; }
    template <int kBits>
    static Wide right32(Wide a) {
        return {_mm_srai_epi32(a.low, kBits), _mm_srai_epi32(a.high, kBits)};
    }
    template <int kBits>
    static Wide right16(Wide a) {
        return {_mm_srai_epi16(a.low, kBits), _mm_srai_epi16(a.high, kBits)};
    }
    template <int kBits>
    static Wide left16(Wide a) {
        return {_mm_slli_epi16(a.low, kBits), _mm_slli_epi16(a.high, kBits)};
    }
    // The even, the odd 32-bit lanes of a, then of b.
    static Wide even32(Wide a, Wide b) { return {chosen<0x88>(a.low, b.low), chosen<0x88>(a.high, b.high)}; }
    static Wide odd32(Wide a, Wide b) { return {chosen<0xDD>(a.low, b.low), chosen<0xDD>(a.high, b.high)}; }
    // Of every two 16-bit lanes the first, twice.
    static Wide repeatEven16(Wide a) { return {repeated(a.low), repeated(a.high)}; }
    static Wide shuffle8(Wide a, Half places) {
        return {_mm_shuffle_epi8(a.low, places), _mm_shuffle_epi8(a.high, places)};
    }

  private:
    static Half repeated(Half a) { return _mm_shufflehi_epi16(_mm_shufflelo_epi16(a, 0xA0), 0xA0); }
    template <int kLanes>
    static Half chosen(Half a, Half b) {
        return _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(a), _mm_castsi128_ps(b), kLanes));
    }
};

}  // namespace jpeg
