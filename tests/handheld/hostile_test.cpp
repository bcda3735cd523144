// Damaged streams through the image's engines: none leaves its buffers, all deliver what the first does.
#include <gtest/gtest.h>

#include <cstring>

#include "support/engine_set.h"
#include "support/hostile_seeds.h"

namespace {

constexpr size_t kStep = 2;  // bytes from one damage to the next

class HostileTest : public testing::Test {
  public:
    explicit HostileTest(const char* seed) : m_seed(seed) {}

  protected:
    void TestBody() override {
        for (const HostileSeed& seed : tinySeeds()) {
            if (seed.name != m_seed) continue;
            for (size_t at = 1; at < seed.stream.size(); at += kStep) {
                Try(Bytes(seed.stream.begin(), seed.stream.begin() + at));
                Bytes flipped = seed.stream;
                flipped[at] ^= static_cast<uint8_t>(1 << at % 8);
                Try(flipped);
            }
        }
    }

  private:
    // A stream in a block of its own size, in one mode after the other.
    void Try(const Bytes& stream) {
        m_mode = m_mode % 14 + 1;
        const uint32_t bytes = targetPicture(m_mode).totalBytes;
        const auto expected = std::make_unique<uint8_t[]>(bytes);
        const DecodeTrace trace = m_engines.decodeBy(0, m_mode, stream.data(), stream.size(), expected.get());
        EXPECT_TRUE(EngineSet::isKnownCode(trace.code)) << trace.code;
        for (size_t engine = 1; engine < m_engines.count(); ++engine) {
            const auto picture = std::make_unique<uint8_t[]>(bytes);
            const DecodeTrace other =
                m_engines.decodeBy(engine, m_mode, stream.data(), stream.size(), picture.get());
            EXPECT_TRUE(other == trace) << m_engines.name(engine);
            EXPECT_EQ(std::memcmp(picture.get(), expected.get(), trace.outputBytes), 0)
                << m_engines.name(engine);
        }
    }

    const std::string m_seed;
    EngineSet m_engines;
    int32_t m_mode = 0;
};

// One test for each stream.
const bool g_made = [] {
    for (const HostileSeed& seed : tinySeeds()) {
        const auto* const name = (new std::string(seed.name))->c_str();  // as long-lived as its test
        new testing::TestCase("Hostile", name,
                              [](const char* of) -> testing::Test* { return new HostileTest(of); });
    }
    return true;
}();

}  // namespace
