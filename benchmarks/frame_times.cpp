#include "benchmarks/frame_times.h"

#include <algorithm>
#include <cstdio>

#include "benchmarks/thread_clock.h"

namespace {

constexpr size_t kFirstCounted = 30;

void PrintQuartiles(const char* name, std::vector<uint64_t> times) {
    if (times.empty()) return;
    std::sort(times.begin(), times.end());
    const auto at = [&](size_t quarter) { return times[(times.size() - 1) * quarter / 4] / 1000.0; };
    std::printf("%s %zu %.1f %.1f %.1f\n", name, times.size(), at(1), at(2), at(3));
}

}  // namespace

CFrameRecorder& Recorder() {
    static CFrameRecorder recorder;
    return recorder;
}

void CFrameRecorder::BeginFrame() {
    const uint64_t now = ThreadNanoseconds();
    if (m_begun != 0) {
        m_current.whole = now - m_begun;
        m_frames.push_back(m_current);
    }
    m_current = {};
    m_begun = now;
}

void CFrameRecorder::Print() const {
    std::array<std::vector<uint64_t>, kSpans> spans;
    std::vector<uint64_t> whole;
    for (size_t i = kFirstCounted; i < m_frames.size(); ++i) {
        whole.push_back(m_frames[i].whole);
        for (size_t span = 0; span < kSpans; ++span)
            if (m_frames[i].spans[span] != 0) spans[span].push_back(m_frames[i].spans[span]);
    }
    PrintQuartiles("whole", std::move(whole));
    for (size_t span = 0; span < kSpans; ++span) PrintQuartiles(kSpanNames[span], std::move(spans[span]));
}

CSpanTimer::CSpanTimer(Span span) : m_span(span), m_begun(ThreadNanoseconds()) {}

CSpanTimer::~CSpanTimer() {
    Recorder().Add(m_span, ThreadNanoseconds() - m_begun);
}
