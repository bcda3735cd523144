#include "support/jpeg_stream.h"

uint32_t lumaAcross(Sampling sampling) {
    return sampling == Sampling::k444 ? 1 : 2;
}
uint32_t lumaDown(Sampling sampling) {
    return sampling == Sampling::k420 ? 2 : 1;
}

std::vector<StreamComponent> threeComponents(Sampling sampling, uint8_t firstId) {
    const auto luma = static_cast<uint8_t>(lumaAcross(sampling) << 4 | lumaDown(sampling));
    const auto id = [firstId](uint8_t index) { return static_cast<uint8_t>(firstId + index); };
    return {{id(0), luma, 0}, {id(1), 0x11, 1}, {id(2), 0x11, 1}};
}

JpegStream& JpegStream::raw(const Bytes& bytes) {
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    return *this;
}

JpegStream& JpegStream::segment(uint8_t code, const Bytes& content) {
    const size_t length = content.size() + 2;
    marker(code);
    raw({static_cast<uint8_t>(length >> 8), static_cast<uint8_t>(length)});
    return raw(content);
}

JpegStream& JpegStream::quantTable(uint8_t number, uint8_t step) {
    return quantTable(number, Bytes(64, step));
}

JpegStream& JpegStream::quantTable(uint8_t number, const Bytes& steps) {
    Bytes content = {number};
    content.insert(content.end(), steps.begin(), steps.end());
    return segment(0xDB, content);
}

JpegStream& JpegStream::restartInterval(uint16_t mcus) {
    return segment(0xDD, {static_cast<uint8_t>(mcus >> 8), static_cast<uint8_t>(mcus)});
}

JpegStream& JpegStream::frame(uint32_t width, uint32_t height,
                              const std::vector<StreamComponent>& components) {
    Bytes content = {8,
                     static_cast<uint8_t>(height >> 8),
                     static_cast<uint8_t>(height),
                     static_cast<uint8_t>(width >> 8),
                     static_cast<uint8_t>(width),
                     static_cast<uint8_t>(components.size())};
    for (const StreamComponent& component : components) {
        content.insert(content.end(), {component.id, component.sampling, component.quantTable});
    }
    return segment(0xC0, content);
}

JpegStream& JpegStream::scanHeader(uint32_t count, uint8_t firstId) {
    Bytes content = {static_cast<uint8_t>(count)};
    for (uint32_t index = 0; index < count; ++index) {
        content.push_back(static_cast<uint8_t>(firstId + index));
        content.push_back(index == 0 ? 0x00 : 0x11);
    }
    content.insert(content.end(), {0, 63, 0});
    return segment(0xDA, content);
}

JpegStream JpegStream::untilScan(uint32_t width, uint32_t height, Sampling sampling, uint8_t step) {
    JpegStream stream;
    stream.start().quantTable(0, step).quantTable(1, step);
    return stream.frame(width, height, sampling).scanHeader();
}
