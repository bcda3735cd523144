// Builds AVI files byte by byte.
#pragma once
#include <cstdint>
#include <string>

namespace viewer {

inline std::string Little(uint32_t value, int bytes = 4) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i);
    return text;
}

inline std::string Chunk(const std::string& id, const std::string& data) {
    return id + Little(static_cast<uint32_t>(data.size())) + data + (data.size() % 2 ? "\x7F" : "");
}

inline std::string List(const std::string& kind, const std::string& chunks) {
    return Chunk("LIST", kind + chunks);
}

inline std::string MainHeader(uint32_t microsecondsPerFrame) {
    return Chunk("avih", Little(microsecondsPerFrame) + std::string(52, '\0'));
}

inline std::string StreamHeader(const std::string& kind, uint32_t scale, uint32_t rate) {
    return Chunk("strh", kind + std::string(16, '\0') + Little(scale) + Little(rate) + std::string(36, '\0'));
}

inline std::string VideoStream(uint32_t scale, uint32_t rate, const std::string& compression = "MJPG") {
    return List("strl", StreamHeader("vids", scale, rate) +
                            Chunk("strf", Little(40) + Little(320) + Little(240) + Little(1, 2) +
                                              Little(24, 2) + compression + std::string(20, '\0')));
}

inline std::string SoundStream(uint32_t tag = 1, uint32_t channels = 1, uint32_t rate = 8000,
                               uint32_t bits = 16) {
    return List("strl", StreamHeader("auds", 2, 16000) +
                            Chunk("strf", Little(tag, 2) + Little(channels, 2) + Little(rate) +
                                              Little(16000) + Little(2, 2) + Little(bits, 2) + Little(0, 2)));
}

inline std::string Avi(const std::string& chunks) {
    return Chunk("RIFF", "AVI " + chunks);
}

}  // namespace viewer
