#pragma once

namespace viewer {

// Starts the camera program, which lies beside the viewer; false when it cannot be started.
bool StartCamera();

}  // namespace viewer
