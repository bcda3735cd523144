// The camera screen: live view above, strip with five buttons below, menu bar at the bottom.
#pragma once
#include "app/camera_records.h"
#include "app/foreground_watcher.h"
#include "app/hot_keys.h"
#include "app/overlay_bitmaps.h"
#include "app/screen_buttons.h"
#include "app/status_strip.h"
#include "framework/dialog.h"
#include "framework/menu_bar.h"
#include "liveview/live_view_window.h"

class CCameraDlg : public CDialog {
  public:
    CCameraDlg(CameraRecords& camera, Profile& profile);

    Reply OnMessage(const Message& message) override;
    Then OnCommand(UINT id, UINT code, HWND control) override;
    bool PreTranslateMessage(MSG& message) override;

    HWND LiveViewHwnd() const { return m_liveView.Hwnd(); }
    void EnableCaptureMenus(bool enabled) const;
    // A message box under the program's name; nothing while another is open.
    void ShowCaption(const wchar_t* text, UINT style);

    // The camera screen that is running, or null: for effects that have no other way to it.
    static CCameraDlg* Current() { return s_current; }

  protected:
    bool OnInitDialog() override;
    void OnOK() override {}      // neither Enter nor Escape ends the screen
    void OnCancel() override {}

  private:
    // start_up.cpp
    void ChooseLettering();
    void CreateLiveView();
    bool ConnectCamera();
    void LoadScreenBitmaps();
    void SelectHeader();
    void StartWatchdog();

    // shut_down.cpp
    void OnExit();
    void OnDestroy();

    // camera_dlg.cpp
    void OnSelfTimerFire();
    void OnClockTick();
    void OnPaint();
    Then OnTimer(UINT_PTR id);
    Then OnHelp();
    Then OnDrawItem(UINT id, const DRAWITEMSTRUCT& item);

    // camera_commands.cpp
    void OnMenu();
    void OnPlay();
    void OnAbout();
    void OnVideo();
    void OnStill();
    void OnShutter();
    void OnActionKey();
    void OnZoomIn();
    void OnZoomOut();
    bool RunScreenCommand(UINT id);
    void RestartLiveStream();
    void CreateMenuBar();
    void CheckMode();
    void PlayZoomSound(const wchar_t* name) const;
    void InvalidateStrip();

    static inline CCameraDlg* s_current = nullptr;

    CameraRecords& m_camera;
    Profile& m_profile;
    LiveView m_view;
    StillCapture m_capture;

    HINSTANCE m_module = nullptr;
    HICON m_icon;
    DWORD m_lcid = 0;
    CHotKeys m_hotKeys;
    CMenuBar m_menuBar;
    COverlayBitmaps m_overlays;
    CScreenButtons m_buttons;
    CStatusStrip m_strip;
    CLiveViewWindow m_liveView;
    UINT_PTR m_watchdog = 0;  // timer, 0 when it does not run
    bool m_showingMessage = false;
    ForegroundWatcher m_foreground;
};
