// The viewer and the help as whole programs, watched and worked from outside.
#pragma once
#include "handheld/korvoimgview/pixels.h"
#include "support/process_family.h"
#include "unit/viewer/store_fixture.h"

namespace viewer {

class CProgramFixture : public CStoreFixture {
  protected:
    ~CProgramFixture() override;

    // Starts a program that lies beside the tests' folder and waits for its window; the one before has ended.
    void Start(const wchar_t* program, const std::wstring& arguments, const wchar_t* windowClass);

    // Whether the window's title becomes the given one within some seconds.
    bool HasTitle(const std::wstring& title) const;
    std::wstring Title() const;
    void Key(WPARAM key) const { PostMessageW(m_window, WM_KEYDOWN, key, 0); }
    void Click(int x, int y) const;
    // Whether a point of the window takes on a colour within some seconds.
    bool Shows(COLORREF colour, int x, int y) const;
    // A number that tells what a part of the window shows; and whether it comes to be, or not to be, a given
    // one.
    uint32_t LookOf(const RECT& part) const;
    bool LooksLike(uint32_t look, const RECT& part) const;
    bool LooksOtherThan(uint32_t look, const RECT& part) const;
    // Closes the window; whether the process ended by itself, without an error.
    bool Ends();

    HWND Window() const { return m_window; }

  private:
    Pixels Screen() const;
    void Forget();

    ProcessFamily m_family;
    PROCESS_INFORMATION m_process = {};
    HWND m_window = nullptr;
};

}  // namespace viewer
