// The pictures on the tool bar's buttons, drawn smoothly at any colour.
#pragma once
#include <windows.h>

namespace handheld {

enum class Icon {
    previous,
    next,
    up,
    down,
    zoomIn,
    zoomOut,
    wholePicture,
    ownSize,
    play,
    pause,
    camera,
    back,
    contents,
    close
};

inline constexpr int kIconSize = 24;

// Draws with `colour` over what is there, in the square of kIconSize pixels at (x, y).
void DrawIcon(HDC to, Icon icon, int x, int y, COLORREF colour);

}  // namespace handheld
