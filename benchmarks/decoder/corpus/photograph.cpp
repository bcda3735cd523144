#include "benchmarks/decoder/corpus/photograph.h"

#include <algorithm>
#include <array>

#include "benchmarks/decoder/corpus/lattice_noise.h"

namespace corpus {

namespace {

using sio::Picture;
using sio::Rgb;

// Colours, and what is added to them, are in levels.
struct Shade {
    int r, g, b;
};

// What the random numbers of a picture are for; each takes its own from scatter().
enum Purpose : uint32_t { kHorizon, kFarColour, kNearColour, kThings, kDetail, kGrain, kTint };

constexpr uint32_t kNumbers = 16;  // a picture has 0..15 degrees of detail
constexpr uint32_t kLeap = 7;      // so that the first few already differ much
constexpr int kFinestCell = 1;     // bits: texture goes down to two pixels
constexpr int kTintOctaves = 5;    // colour changes more slowly than light
constexpr int kSteps = 16;         // of a level: what texture and tint are counted in
constexpr int kStrongest = 62 * kSteps, kStrongestTint = 18 * kSteps;
constexpr int kLargest = 130;  // half size of the largest thing, in thousandths of the picture
constexpr int kSmallest = 7;
constexpr int kFarSoftness = 3;   // the far ground has less texture by this factor
constexpr int kLongestRoll = 24;  // of the horizon, as a part of the height

class CPhotograph {
  public:
    CPhotograph(int width, int height, uint32_t number) : m_seed(scatter(number, width, height)) {
        m_picture.resize(width, height);
        m_richness = static_cast<int>(number * kLeap % kNumbers);
    }

    Picture take() {
        makeOctaves();
        for (int y = 0; y < m_picture.height; ++y) {
            m_detail.push_back(noiseRow(m_texture, y));
            drawGround(y);
        }
        const int things = 100 + 28 * m_richness;
        for (int thing = 0; thing < things; ++thing) drawThing(static_cast<uint32_t>(thing));
        soften();
        addGrain();
        return std::move(m_picture);
    }

  private:
    uint32_t bits(Purpose purpose, uint32_t index = 0) const { return scatter(index, purpose, m_seed); }
    int between(int low, int high, Purpose purpose, uint32_t index = 0) const {
        return low + static_cast<int>(bits(purpose, index) % static_cast<uint32_t>(high - low));
    }
    Shade colour(Purpose purpose, uint32_t index = 0) const {
        const int grey = between(60, 190, purpose, 4 * index + 100);
        const auto channel = [&](uint32_t which) {
            return grey + between(-50, 50, purpose, 4 * index + which);
        };
        return {channel(101), channel(102), channel(103)};
    }

    // From half the picture down to the finest, each weaker than the one before.
    void makeOctaves() {
        int coarsest = kFinestCell;
        while (2 << coarsest < m_picture.width) ++coarsest;
        int amplitude = kStrongest;
        for (int cell = coarsest; cell >= kFinestCell; --cell) {
            m_texture.push_back({cell, amplitude, bits(kDetail, static_cast<uint32_t>(cell))});
            amplitude = amplitude * (79 + m_richness) / 100;
        }
        for (int i = 0; i < kTintOctaves; ++i)
            m_tint.push_back(
                {coarsest - i, kStrongestTint * 2 / (i + 2), bits(kTint, static_cast<uint32_t>(i))});
    }

    std::vector<int> noiseRow(const std::vector<Octave>& octaves, int y) const {
        std::vector<int> row(static_cast<size_t>(m_picture.width));
        for (const Octave& octave : octaves) addNoise(octave, y, row);
        return row;
    }

    void drawGround(int y) {
        const Shade far = colour(kFarColour), near = colour(kNearColour);
        const int horizon = m_picture.height * between(25, 60, kHorizon) / 100;
        std::vector<int> roll(static_cast<size_t>(m_picture.width));
        addNoise({m_texture[1].cellBits, m_picture.height / kLongestRoll, bits(kHorizon, 1)}, 0, roll);
        addNoise({m_texture[3].cellBits, m_picture.height / kLongestRoll / 3, bits(kHorizon, 2)}, 0, roll);
        const std::vector<int>&texture = m_detail.back(), tint = noiseRow(m_tint, y);
        Rgb* out = m_picture.row(y);
        for (size_t x = 0; x < texture.size(); ++x) {
            const bool isFar = y < horizon + roll[x];
            const int light = (isFar ? 30 : 25) + 60 * y / m_picture.height * (isFar ? 1 : -1);
            const int detail = isFar ? texture[x] / kFarSoftness : texture[x];
            put(out[x], isFar ? far : near, light + detail / kSteps, tint[x] / kSteps);
        }
    }

    // A box or an ellipse, lit from one side.
    void drawThing(uint32_t thing) {
        const auto number = [&](int low, int high, uint32_t which) {
            return between(low, high, kThings, thing * 8 + which);
        };
        const int width = m_picture.width, height = m_picture.height;
        const int size = std::max(kSmallest, kLargest / (1 + static_cast<int>(thing) / 8));
        const int halfWidth = width * number(size / 3, size, 0) / 1000 + 1;
        const int halfHeight = height * number(size / 3, size, 1) / 1000 + 1;
        const int centreX = number(0, width, 2), centreY = number(0, height, 3);
        const bool isRound = number(0, 2, 4) == 0;
        const int slope = number(-40, 40, 5), roughness = number(1, 4, 6);
        const Shade shade = colour(kThings, 50 + thing);
        for (int y = std::max(0, centreY - halfHeight); y < std::min(height, centreY + halfHeight); ++y) {
            const std::vector<int>& texture = m_detail[static_cast<size_t>(y)];
            Rgb* out = m_picture.row(y);
            for (int x = std::max(0, centreX - halfWidth); x < std::min(width, centreX + halfWidth); ++x) {
                const int across = (x - centreX) * 256 / halfWidth, down = (y - centreY) * 256 / halfHeight;
                if (isRound && across * across + down * down > 65536) continue;
                const int detail = texture[static_cast<size_t>(x)] / roughness;
                put(out[x], shade, across * slope / 256 + detail / kSteps, 0);
            }
        }
    }

    static void put(Rgb& pixel, const Shade& shade, int light, int tint) {
        pixel = {level(shade.r + light + tint), level(shade.g + light), level(shade.b + light - tint)};
    }
    static uint8_t level(int value) { return static_cast<uint8_t>(std::clamp(value, 0, 255)); }

    // What a lens does: each pixel gets a quarter of each neighbour's light, across and then down.
    void soften() {
        const int width = m_picture.width, height = m_picture.height;
        const Picture sharp = m_picture;
        Picture across = m_picture;
        for (int y = 0; y < height; ++y)
            for (int x = 1; x + 1 < width; ++x)
                across.row(y)[x] = mean(sharp.at(x - 1, y), sharp.at(x, y), sharp.at(x + 1, y));
        for (int y = 1; y + 1 < height; ++y)
            for (int x = 0; x < width; ++x)
                m_picture.row(y)[x] = mean(across.at(x, y - 1), across.at(x, y), across.at(x, y + 1));
    }
    static Rgb mean(const Rgb& before, const Rgb& here, const Rgb& after) {
        const auto channel = [](int a, int b, int c) {
            return static_cast<uint8_t>((a + 2 * b + c + 2) / 4);
        };
        return {channel(before.r, here.r, after.r), channel(before.g, here.g, after.g),
                channel(before.b, here.b, after.b)};
    }

    void addGrain() {
        const int strength = 2 + m_richness / 6;
        for (int y = 0; y < m_picture.height; ++y) {
            Rgb* row = m_picture.row(y);
            for (int x = 0; x < m_picture.width; ++x) {
                const auto grain = [&](uint8_t value, uint32_t channel) {
                    return level(value + scatteredWithin(strength, static_cast<uint32_t>(x),
                                                         static_cast<uint32_t>(y), bits(kGrain, channel)));
                };
                row[x] = {grain(row[x].r, 0), grain(row[x].g, 1), grain(row[x].b, 2)};
            }
        }
    }

    Picture m_picture;
    const uint32_t m_seed;
    int m_richness;
    std::vector<Octave> m_texture, m_tint;
    std::vector<std::vector<int>> m_detail;  // the texture's rows
};

}  // namespace

Picture photograph(int width, int height, uint32_t number) {
    return CPhotograph(width, height, number).take();
}

}  // namespace corpus
