// The inverse DCTs of the fast engines. They compute what inverse_dct.cpp computes, step for step. Products
// are multiplied and added in pairs and shifted in 32 bits; everything else, from the dequantised
// coefficients on, is held and added in 16.
//
// That is exact as long as it fits. What the 8-point passes hold are sums of their inputs with weights; the
// largest is that of the difference which the rotation by 45 degrees takes: 5.55 in the column pass (4 x 710
// / 512), 1.39 in the row pass. No result of the column pass weighs an input by more than 3.93 (4 x 502 /
// 512). So if the magnitudes of a block's dequantised coefficients add up to no more than kLargestSum8,
//   - the column pass holds at most 5.55 x 5800 and a little for the roundings, below 32,768;
//   - its results of one row together are at most 3.93 x 5800, as each column's share comes of its own
//     coefficients, and the row pass holds at most 1.39 times that.
// For 4 x 4 only the results of the column pass are held in 16 bits, weighed by 5.13 (20995 / 4096) at most,
// and kLargestSum4 is the bound. Saturation only repeats the final clamping.
#pragma once
#include <cstdint>

#include "jpeg/x86/block_layout.h"
#include "jpeg/x86/dct_weights.h"

namespace jpeg {

inline constexpr int32_t kLargestSum8 = 5800;
inline constexpr int32_t kLargestSum4 = 6300;

template <class Lanes>
struct WideDct {
    using Wide = typename Lanes::Wide;
    using Half = typename Lanes::Half;

    // The dequantised coefficients, by the groups of block_layout.h.
    struct Block {
        Wide rows04, rows26, rows17, rows53;
    };

    // Products of 16 bits: the caller sees to it that they fit.
    static Block dequantise(const int16_t* coefficients, const int16_t* quant) {
        const auto group = [&](WordGroup at) {
            return Lanes::multiply16(Lanes::load(coefficients + at), Lanes::load(quant + at));
        };
        return {group(kRows04), group(kRows26), group(kRows17), group(kRows53)};
    }

    static void store(int16_t* words, const Block& block) {
        Lanes::store(words + kRows04, block.rows04);
        Lanes::store(words + kRows26, block.rows26);
        Lanes::store(words + kRows17, block.rows17);
        Lanes::store(words + kRows53, block.rows53);
    }

    // Adds to the coefficient of the first row and column.
    static void addMean(Block& block, int32_t mean) {
        block.rows04 = Lanes::add16(block.rows04, Lanes::onlyFirst32(mean & 0xFFFF));
    }

    // The magnitudes added up; each must be below 8192.
    static int32_t sumOfMagnitudes(const Block& block) {
        const Wide even = Lanes::add16(Lanes::abs16(block.rows04), Lanes::abs16(block.rows26));
        const Wide odd = Lanes::add16(Lanes::abs16(block.rows17), Lanes::abs16(block.rows53));
        const Wide sums = Lanes::madd(Lanes::add16(even, odd), load(kOnes));
        Half sum = _mm_add_epi32(Lanes::low(sums), Lanes::high(sums));
        sum = _mm_add_epi32(sum, _mm_shuffle_epi32(sum, 0x4E));
        sum = _mm_add_epi32(sum, _mm_shuffle_epi32(sum, 0xB1));
        return _mm_cvtsi128_si32(sum);
    }

    static void inverse8(uint8_t* out, uint32_t stride, const Block& block) {
        storeSamples8(out, stride, transform8(turned(transform8(block, kDct8Columns)), kDct8Rows));
    }

    static void inverse4(uint8_t* out, uint32_t stride, const Block& block) {
        Wide rows[4];
        transform4(block, rows);
        const Wide upper = Lanes::pack32(rows[0], rows[1]);
        const Wide lower = Lanes::pack32(rows[2], rows[3]);
        const Wide outer = Lanes::even32(upper, lower);  // columns 0 and 4 | 1 and 7
        const Wide inner = Lanes::odd32(upper, lower);   // columns 2 and 6 | 5 and 3
        const Half rows17 = Lanes::high(outer);
        const Half rows53 = Lanes::high(inner);
        const Half t0 = product(Lanes::low(outer), kDct4.t0);
        const Half t2 = product(Lanes::low(inner), kDct4.t2);
        const Half oddA = _mm_add_epi32(product(rows17, kDct4.oddA17), product(rows53, kDct4.oddA53));
        const Half oddB = _mm_add_epi32(product(rows17, kDct4.oddB17), product(rows53, kDct4.oddB53));
        const Half even = _mm_add_epi32(t0, t2);
        const Half other = _mm_sub_epi32(t0, t2);
        const Half first = _mm_packs_epi32(_mm_srai_epi32(_mm_add_epi32(even, oddB), 19),
                                           _mm_srai_epi32(_mm_add_epi32(other, oddA), 19));
        const Half second = _mm_packs_epi32(_mm_srai_epi32(_mm_sub_epi32(other, oddA), 19),
                                            _mm_srai_epi32(_mm_sub_epi32(even, oddB), 19));
        const Half centre = _mm_set1_epi16(128);
        const Half bytes = _mm_packus_epi16(_mm_adds_epi16(first, centre), _mm_adds_epi16(second, centre));
        const Half samples = _mm_shuffle_epi8(bytes, turn4());
        storeWord(out, _mm_cvtsi128_si32(samples));
        storeWord(out + stride, _mm_extract_epi32(samples, 1));
        storeWord(out + 2 * stride, _mm_extract_epi32(samples, 2));
        storeWord(out + 3 * stride, _mm_extract_epi32(samples, 3));
    }

  private:
    static Wide load(const WeightPairs& pairs) { return Lanes::load(pairs.words); }
    static Half product(Half words, const WeightPairs& weights) {
        return _mm_madd_epi16(words, _mm_load_si128(reinterpret_cast<const Half*>(weights.words)));
    }
    static Wide product(Wide words, const WeightPairs& weights) { return Lanes::madd(words, load(weights)); }
    static Wide product9(Wide words, const WeightPairs& weights) {
        return Lanes::template right32<9>(product(words, weights));
    }

    // Four columns of four bytes each become four rows.
    static Half turn4() { return _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15); }

    static void storeWord(uint8_t* out, int32_t word) { __builtin_memcpy(out, &word, sizeof word); }

    // What a pass makes of eight columns or rows, four in each half: two kinds of results beside each other.
    struct Lines {
        Wide out01, out32, out45, out76;
    };

    // One pass, in every lane its own column or row.
    static Lines transform8(const Block& x, const Dct8Weights& weights) {
        const Wide a01 = Lanes::pack32(product9(x.rows04, weights.a0), product9(x.rows04, weights.a1));
        const Wide b01 = Lanes::pack32(product9(x.rows26, weights.b0), product9(x.rows26, weights.b1));
        const Wide p03 = Lanes::pack32(product9(x.rows17, weights.p0), product9(x.rows17, weights.p3));
        const Wide p12 = Lanes::pack32(product9(x.rows53, weights.p1), product9(x.rows53, weights.p2));
        const Wide e01 = Lanes::add16(a01, b01);
        const Wide e32 = Lanes::sub16(a01, b01);
        const Wide s03 = Lanes::add16(p03, p12);
        const Wide d03 = Lanes::sub16(p03, p12);
        const Wide turning = Lanes::add16(Lanes::swapped64(d03), Lanes::sign16(d03, load(kTurn)));
        // 362 / 512 is 1 - 19200 / 65536
        const Wide o12 = Lanes::add16(turning, Lanes::multiplyHigh16(turning, load(kRotation)));
        const Wide s0o1 = Lanes::interleaveLow64(s03, o12);
        const Wide s3o2 = Lanes::interleaveHigh64(s03, o12);
        return {Lanes::add16(e01, s3o2), Lanes::add16(e32, s0o1), Lanes::sub16(e32, s0o1),
                Lanes::sub16(e01, s3o2)};
    }

    // The same for 4 points.
    static void transform4(const Block& x, Wide* out) {
        const Wide t0 = product(x.rows04, kDct4.t0);
        const Wide t2 = product(x.rows26, kDct4.t2);
        const Wide oddA = Lanes::add32(product(x.rows17, kDct4.oddA17), product(x.rows53, kDct4.oddA53));
        const Wide oddB = Lanes::add32(product(x.rows17, kDct4.oddB17), product(x.rows53, kDct4.oddB53));
        const Wide even = Lanes::add32(t0, t2);
        const Wide other = Lanes::sub32(t0, t2);
        out[0] = Lanes::template right32<12>(Lanes::add32(even, oddB));
        out[1] = Lanes::template right32<12>(Lanes::add32(other, oddA));
        out[2] = Lanes::template right32<12>(Lanes::sub32(other, oddA));
        out[3] = Lanes::template right32<12>(Lanes::sub32(even, oddB));
    }

    // Eight rows with the columns 0 4 2 6 | 1 7 5 3 become pairs of columns with the rows 0 1 3 2 | 4 5 7 6.
    static Block turned(const Lines& rows) {
        const Wide outerUpper = Lanes::even32(rows.out01, rows.out32);  // columns 0 and 4 | 1 and 7
        const Wide outerLower = Lanes::even32(rows.out45, rows.out76);
        const Wide innerUpper = Lanes::odd32(rows.out01, rows.out32);  // columns 2 and 6 | 5 and 3
        const Wide innerLower = Lanes::odd32(rows.out45, rows.out76);
        return {Lanes::joinLow(outerUpper, outerLower), Lanes::joinLow(innerUpper, innerLower),
                Lanes::joinHigh(outerUpper, outerLower), Lanes::joinHigh(innerUpper, innerLower)};
    }

    // Sixteenths to bytes: rounded to the nearest, halves away from zero, and centred at 128.
    static Wide rounded(Wide values) {
        const Wide towardsZero = Lanes::addSaturated16(values, Lanes::template right16<15>(values));
        return Lanes::template right16<4>(Lanes::addSaturated16(towardsZero, load(kRounding)));
    }

    static void storeSamples8(uint8_t* out, uint32_t stride, const Lines& columns) {
        // by rows, from columns in the order 0 1 3 2 or 4 5 7 6
        const Half turn = _mm_setr_epi8(0, 4, 12, 8, 1, 5, 13, 9, 3, 7, 15, 11, 2, 6, 14, 10);
        const Wide left =
            Lanes::shuffle8(Lanes::pack16(rounded(columns.out01), rounded(columns.out32)), turn);
        const Wide right =
            Lanes::shuffle8(Lanes::pack16(rounded(columns.out45), rounded(columns.out76)), turn);
        const Wide outer = Lanes::interleaveLow32(left, right);   // rows 0 1 | 4 5
        const Wide inner = Lanes::interleaveHigh32(left, right);  // rows 2 3 | 6 7
        storeRows(out, stride, Lanes::low(outer));
        storeRows(out + 2 * stride, stride, Lanes::low(inner));
        storeRows(out + 4 * stride, stride, Lanes::high(outer));
        storeRows(out + 6 * stride, stride, Lanes::high(inner));
    }
    static void storeRows(uint8_t* out, uint32_t stride, Half twoRows) {
        _mm_storel_epi64(reinterpret_cast<Half*>(out), twoRows);
        _mm_storeh_pd(reinterpret_cast<double*>(out + stride), _mm_castsi128_pd(twoRows));
    }
};

}  // namespace jpeg
