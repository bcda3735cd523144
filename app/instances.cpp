// The one file that defines the process-wide records, in the order of their construction, and the program's entry.
#include "app/camera_app.h"

namespace {

CameraRecords g_camera;
CCameraApp g_application(g_camera);

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR commandLine, int) {
    return RunApplication(g_application, commandLine);
}
