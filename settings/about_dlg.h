// The About dialog: the product, the time of day in UTC, and the versions of program and camera.
#pragma once
#include "app/text_lookup.h"
#include "device/camera_device.h"
#include "framework/dialog.h"

class CAboutDlg : public CDialog {
  public:
    // `device` is asked for its version when the dialog opens; it may be closed.
    CAboutDlg(const TextLookup& texts, CameraDevice& device);

    Reply OnMessage(const Message& message) override;

  protected:
    bool OnInitDialog() override;
    bool Exchange(ExchangeDirection direction) override;

  private:
    Then OnHelp();
    void OnDestroy();
    void FillVersions(HWND list);
    void AlignTime();

    const TextLookup& m_texts;
    CameraDevice& m_device;
    std::wstring m_time;  // empty until the dialog opens
};
