// Where a frame's time goes: spans of the program's thread, added up frame by frame.
#pragma once
#include <array>
#include <cstdint>
#include <iterator>
#include <vector>

enum class Span { read, decode, paint, canvas, picture, overlays, freeSpace, readouts, copy };
inline constexpr const char* kSpanNames[] = {"read",     "decode",     "paint",    "canvas", "picture",
                                             "overlays", "free-space", "readouts", "copy"};
inline constexpr size_t kSpans = std::size(kSpanNames);

struct FrameTimes {
    std::array<uint64_t, kSpans> spans{};  // nanoseconds; 0: nothing of the kind happened
    uint64_t whole = 0;                    // from this frame's arrival to the next one's
};

class CFrameRecorder {
  public:
    // A frame has arrived: what follows, up to the next call, is its.
    void BeginFrame();
    void Add(Span span, uint64_t nanoseconds) { m_current.spans[static_cast<size_t>(span)] += nanoseconds; }
    // Complete frames so far.
    size_t Count() const { return m_frames.size(); }
    // One line per span, "NAME FRAMES LOWER MEDIAN UPPER": frames in which it happened, and their quartiles
    // in microseconds.  The first frames, which load and grow things, are left out.
    void Print() const;

  private:
    std::vector<FrameTimes> m_frames;
    FrameTimes m_current;
    uint64_t m_begun = 0;  // 0 before the first frame
};

// The recorder of this run.
CFrameRecorder& Recorder();

// Adds its own lifetime to the current frame.
class CSpanTimer {
  public:
    explicit CSpanTimer(Span span);
    CSpanTimer(const CSpanTimer&) = delete;
    CSpanTimer& operator=(const CSpanTimer&) = delete;
    ~CSpanTimer();

  private:
    const Span m_span;
    const uint64_t m_begun;
};
