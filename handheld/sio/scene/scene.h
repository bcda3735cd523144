// The picture that the card sees when nothing else is chosen: a harbour on a fine day, with everything in it
// that shows a fault of colour, sharpness or motion at a glance.
#pragma once
#include <cstdint>
#include <vector>

#include "handheld/sio/picture/picture.h"
#include "handheld/sio/picture/view.h"

namespace sio {

inline constexpr uint32_t kDayMilliseconds = 24u * 60 * 60 * 1000;

class CScene {
  public:
    // Draws the scene as it looks at a time of day (milliseconds since midnight); depends on nothing else.
    void draw(uint32_t timeOfDay, const View& view, Picture& into);

  private:
    struct Background {
        View view;
        Picture picture;
    };
    const Picture& background(const View& view);

    // What does not move, drawn once per view: drawing it takes ten times as long as what moves. Newest
    // first.
    std::vector<Background> m_backgrounds;
};

}  // namespace sio
