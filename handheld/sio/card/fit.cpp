#include "handheld/sio/card/fit.h"

#include <algorithm>
#include <cmath>

namespace sio {
namespace {

// The source samples, and their shares, of which one target sample is the mean.
struct Window {
    int first;
    std::vector<float> shares;  // their sum is 1
};

// A triangle as wide as the step between target samples, and never narrower than one source sample.
std::vector<Window> makeWindows(double start, double length, int targets, int sources) {
    std::vector<Window> windows(targets);
    const double step = length / targets, reach = std::max(step, 1.0);
    for (int i = 0; i < targets; ++i) {
        const double centre = start + (i + 0.5) * step - 0.5;
        const int first = std::clamp(static_cast<int>(std::ceil(centre - reach)), 0, sources - 1);
        const int last = std::clamp(static_cast<int>(std::floor(centre + reach)), first, sources - 1);
        windows[i].first = first;
        double sum = 0;
        for (int s = first; s <= last; ++s) {
            const double share = std::max(1 - std::fabs(s - centre) / reach, 1e-6);
            windows[i].shares.push_back(static_cast<float>(share));
            sum += share;
        }
        for (float& share : windows[i].shares) share = static_cast<float>(share / sum);
    }
    return windows;
}

struct Sum {
    float r = 0, g = 0, b = 0;
    void add(float share, float red, float green, float blue) {
        r += share * red;
        g += share * green;
        b += share * blue;
    }
};

uint8_t level(float value) {
    return static_cast<uint8_t>(std::clamp(value + 0.5f, 0.0f, 255.0f));
}

}  // namespace

void fitToView(const Picture& source, const View& view, Picture& into) {
    into.resize(view.width, view.height);
    const double scale = std::max(static_cast<double>(view.width) / source.width,
                                  static_cast<double>(view.height) / source.height) *
                         view.magnification();
    const double width = view.width / scale, height = view.height / scale;
    const auto columns = makeWindows((source.width - width) / 2, width, view.width, source.width);
    const auto rows = makeWindows((source.height - height) / 2, height, view.height, source.height);

    // Down first: each source row that counts is read once and only one row of sums is kept.
    std::vector<Sum> sums(source.width);
    for (int y = 0; y < view.height; ++y) {
        std::fill(sums.begin(), sums.end(), Sum{});
        for (size_t i = 0; i < rows[y].shares.size(); ++i) {
            const Rgb* in = source.row(rows[y].first + static_cast<int>(i));
            for (int x = 0; x < source.width; ++x) sums[x].add(rows[y].shares[i], in[x].r, in[x].g, in[x].b);
        }
        for (int x = 0; x < view.width; ++x) {
            Sum total;
            for (size_t i = 0; i < columns[x].shares.size(); ++i) {
                const Sum& sum = sums[columns[x].first + i];
                total.add(columns[x].shares[i], sum.r, sum.g, sum.b);
            }
            into.row(y)[x] = {level(total.r), level(total.g), level(total.b)};
        }
    }
}

}  // namespace sio
