// The decoder of the image against the golden list: every picture, in every mode, by every engine that it
// has.
#include "golden/golden_lines.h"

#include <gtest/gtest.h>

#include "handheld/loader/system_calls.h"

namespace {

std::vector<std::string> ExpectedLines(const std::string& picture) {
    std::vector<std::string> lines;
    std::string line;
    const int list = sys::Open(GOLDEN_LIST);
    for (char character; sys::Read(list, &character, 1) == 1;) {
        if (character != '\n') {
            line += character;
            continue;
        }
        if (line.compare(0, picture.size() + 1, picture + " ") == 0) lines.push_back(line);
        line.clear();
    }
    return lines;
}

class GoldenTest : public testing::Test {
  public:
    explicit GoldenTest(const char* picture) : m_picture(picture) {}

  protected:
    void TestBody() override {
        uint32_t engines = 0;
        const std::vector<std::string> expected = ExpectedLines(m_picture);
        EXPECT_EQ(expected.size(), 15u);
        for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
            EXPECT_TRUE(engine.supported());
            const std::vector<std::string> lines = goldenLines(m_picture, engine);
            EXPECT_EQ(lines.size(), expected.size());
            for (size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i], expected[i]) << engine.name;
            ++engines;
        }
        EXPECT_GT(engines, 0u);
    }

  private:
    const std::string m_picture;
};

// One test for each picture.
const bool g_made = [] {
    for (const std::string& picture : goldenPictures()) {
        const auto* const name = (new std::string(picture))->c_str();  // as long-lived as its test
        new testing::TestCase("Golden", name,
                              [](const char* of) -> testing::Test* { return new GoldenTest(of); });
    }
    return true;
}();

}  // namespace
