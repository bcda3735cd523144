// As much of GoogleTest as the unit tests need that also run inside the loader, where there is no C library.
// A test stops at its first failed check of any kind: each runs in a process of its own.
#pragma once
#include <string>
#include <type_traits>
#include <vector>

namespace testing {

class Test {
  public:
    virtual ~Test() = default;
    void Run() {
        SetUp();
        TestBody();
        TearDown();
    }

  protected:
    virtual void SetUp() {}
    virtual void TearDown() {}
    virtual void TestBody() = 0;
};

struct TestCase {
    const char* suite;
    const char* name;
    Test* (*make)(const char* name);
    TestCase* next = nullptr;  // in the order of their making

    TestCase(const char* suiteName, const char* testName, Test* (*maker)(const char*));
};
TestCase* FirstTest();

std::string Decimal(uint64_t magnitude, bool negative);
std::string Quoted(const std::wstring& text);

inline std::string Shown(const std::string& text) {
    return '"' + text + '"';
}
inline std::string Shown(const char* text) {
    return Shown(std::string(text));
}
inline std::string Shown(const std::wstring& text) {
    return Quoted(text);
}
inline std::string Shown(const wchar_t* text) {
    return Quoted(text);
}
inline std::string Shown(std::nullptr_t) {
    return "null";
}
template <typename Value>
std::string Shown(const Value& value);
template <typename Value>
std::string Shown(const std::vector<Value>& values) {
    std::string text = "{";
    for (const Value& value : values) text += (text.size() > 1 ? ", " : "") + Shown(value);
    return text + "}";
}
template <typename Value>
std::string Shown(const Value& value) {
    if constexpr (std::is_enum_v<Value>) {
        return Shown(static_cast<std::underlying_type_t<Value>>(value));
    } else if constexpr (std::is_integral_v<Value>) {
        const bool negative = value < 0;
        const auto wide = static_cast<uint64_t>(static_cast<int64_t>(value));
        return Decimal(negative ? 0 - wide : wide, negative);
    } else if constexpr (std::is_pointer_v<Value>) {
        return "address " + Decimal(reinterpret_cast<uintptr_t>(value), false);
    } else {
        return "a value of " + Decimal(sizeof value, false) + " bytes";
    }
}

// One check that failed; what is streamed into it is said with it. Its end is the test's, and its process's.
class Failure {
  public:
    Failure(const char* file, int line, std::string what);
    ~Failure();
    template <typename Value>
    Failure& operator<<(const Value& value) {
        m_what += " " + Shown(value);
        return *this;
    }

  private:
    std::string m_what;
};

template <typename Left, typename Right>
std::string Compared(const char* what, const Left& left, const Right& right) {
    return std::string(what) + ": " + Shown(left) + " against " + Shown(right);
}

// What the program said on its standard output in between.
namespace internal {
void CaptureStdout();
std::string GetCapturedStdout();
}  // namespace internal

}  // namespace testing

#define ZEL_TEST_CLASS(suite, name) suite##_##name##_Test
#define ZEL_TEST(suite, name, base)                                                                      \
    class ZEL_TEST_CLASS(suite, name) : public base {                                                    \
        void TestBody() override;                                                                        \
    };                                                                                                   \
    static ::testing::TestCase g_##suite##_##name(                                                       \
        #suite, #name, [](const char*) -> ::testing::Test* { return new ZEL_TEST_CLASS(suite, name); }); \
    void ZEL_TEST_CLASS(suite, name)::TestBody()
#define TEST(suite, name) ZEL_TEST(suite, name, ::testing::Test)
#define TEST_F(suite, name) ZEL_TEST(suite, name, suite)

// The values are bound by reference and looked at once, as their making may have effects.
#define ZEL_COMPARE(left, sign, right)                                                                   \
    if (const auto zelFailed =                                                                           \
            [](const auto& a, const auto& b) {                                                           \
                return a sign b ? std::string() : ::testing::Compared(#left " " #sign " " #right, a, b); \
            }((left), (right));                                                                          \
        zelFailed.empty())                                                                               \
        ;                                                                                                \
    else                                                                                                 \
        ::testing::Failure(__FILE__, __LINE__, zelFailed)
#define EXPECT_EQ(left, right) ZEL_COMPARE(left, ==, right)
#define EXPECT_NE(left, right) ZEL_COMPARE(left, !=, right)
#define EXPECT_LT(left, right) ZEL_COMPARE(left, <, right)
#define EXPECT_LE(left, right) ZEL_COMPARE(left, <=, right)
#define EXPECT_GT(left, right) ZEL_COMPARE(left, >, right)
#define EXPECT_GE(left, right) ZEL_COMPARE(left, >=, right)
#define EXPECT_TRUE(value) ZEL_COMPARE(static_cast<bool>(value), ==, true)
#define EXPECT_FALSE(value) ZEL_COMPARE(static_cast<bool>(value), ==, false)
#define EXPECT_NEAR(left, right, distance) \
    EXPECT_TRUE((left) - (right) <= (distance) && (right) - (left) <= (distance))
#define ASSERT_EQ EXPECT_EQ
#define ASSERT_NE EXPECT_NE
#define ASSERT_TRUE EXPECT_TRUE
#define ASSERT_LE EXPECT_LE
