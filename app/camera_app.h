// The application object: loads the settings and runs the camera screen until it ends.
#pragma once
#include "app/camera_records.h"
#include "framework/application.h"

class CCameraApp : public CApplication {
  public:
    explicit CCameraApp(CameraRecords& camera) : m_camera(camera) {}

  protected:
    // Always false: the program ends when the camera screen closes, there is no loop of its own.
    bool InitInstance() override;

  private:
    CameraRecords& m_camera;
};
