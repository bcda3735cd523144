#include "handheld/loader/test_runner.h"

#include <cstring>

#include "gtest/gtest.h"
#include "handheld/loader/guarded_memory.h"
#include "handheld/loader/image.h"
#include "handheld/loader/line.h"
#include "handheld/loader/system_calls.h"

namespace testing {

namespace {

TestCase* g_first;
TestCase** g_last = &g_first;

}  // namespace

TestCase::TestCase(const char* suiteName, const char* testName, Test* (*maker)(const char*))
    : suite(suiteName), name(testName), make(maker) {
    *g_last = this;
    g_last = &next;
}

TestCase* FirstTest() {
    return g_first;
}

std::string Decimal(uint64_t magnitude, bool negative) {
    std::string text;
    do {
        text.insert(text.begin(), static_cast<char>('0' + magnitude % 10));
        magnitude /= 10;
    } while (magnitude != 0);
    return negative ? "-" + text : text;
}

std::string Quoted(const std::wstring& text) {
    std::string shown = "L\"";
    for (const wchar_t character : text) shown += character < 0x7F ? static_cast<char>(character) : '?';
    return shown + '"';
}

Failure::Failure(const char* file, int line, std::string what) {
    const char* const name = std::strrchr(file, '/');
    m_what = std::string(name != nullptr ? name + 1 : file) + " line " +
             Decimal(static_cast<uint64_t>(line), false) + ": " + what;
}

Failure::~Failure() {
    Stop(Line() << m_what.c_str());
}

}  // namespace testing

namespace {

constexpr uint32_t kSecondsForATest = 60;
constexpr int kSkipped = 2;  // a child's exit code

void RunBody(void* test) {
    const auto& made = *static_cast<testing::TestCase*>(test);
    testing::Test* const body = made.make(made.name);
    body->Run();
    delete body;
}

std::string NameOf(const testing::TestCase& test) {
    return std::string(test.suite) + "." + test.name;
}

[[noreturn]] void RunChild(testing::TestCase& test, GuardedStack& stack, int answer) {
    SayTo(answer);
    sys::EndAfter(kSecondsForATest);
    stack.Run(RunBody, &test);
    sys::Exit(0);
}

// What the child said until it ended, in one line.
std::string ReadAnswer(int file) {
    std::string answer;
    char part[256];
    for (int got; (got = sys::Read(file, part, sizeof part)) > 0;)
        for (int i = 0; i < got; ++i) answer += part[i] == '\n' ? ' ' : part[i];
    return answer;
}

bool BeginsWith(const std::string& name, const char* beginning) {
    return std::strncmp(name.c_str(), beginning, std::strlen(beginning)) == 0;
}

// Some tests are there to fail: they show that the loader notices.
bool IsWanted(const std::string& name, const char* pattern) {
    return BeginsWith(name, pattern) && (*pattern != 0 || !BeginsWith(name, "Deliberate."));
}

// Whether it did not fail.
bool RunOne(testing::TestCase& test, GuardedStack& stack) {
    int ends[2];
    if (!sys::Pipe(ends)) Stop(Line() << "no pipe");
    stack.Clear();
    const int child = sys::Fork();
    if (child < 0) Stop(Line() << "no process for a test");
    if (child == 0) {
        sys::Close(ends[0]);
        RunChild(test, stack, ends[1]);
    }
    sys::Close(ends[1]);
    const std::string answer = ReadAnswer(ends[0]);
    sys::Close(ends[0]);
    const int status = sys::WaitFor(child);
    if (status == 0 && answer.empty()) {
        Say(Line() << "ok " << NameOf(test).c_str());
        return true;
    }
    const bool skipped = status == kSkipped << 8;
    Line line;
    line << (skipped ? "skipped " : "FAILED ") << NameOf(test).c_str() << ": " << answer.c_str();
    if (answer.empty()) line << "its process ended with " << Hex{static_cast<uint32_t>(status)};
    Say(line);
    return skipped;
}

}  // namespace

int RunTests(const char* pattern) {
    GuardedStack stack(TheImage().stackBytes);
    uint32_t failed = 0, ran = 0, most = 0;
    std::string deepest;
    for (testing::TestCase* test = testing::FirstTest(); test != nullptr; test = test->next) {
        const std::string name = NameOf(*test);
        if (!IsWanted(name, pattern)) continue;
        ++ran;
        failed += !RunOne(*test, stack);
        if (stack.Used() <= most) continue;
        most = stack.Used();
        deepest = name;
    }
    Say(Line() << "stack: " << most << " of " << TheImage().stackBytes << " bytes at most, by "
               << deepest.c_str());
    return ran != 0 && failed == 0 ? 0 : 1;
}

void SkipWithout(const char* function) {
    Say(Line() << "the image has no " << function);
    sys::Exit(kSkipped);
}
