// The viewer's screen: one picture, movie or message, and the buttons to go on from it.
#pragma once
#include <memory>
#include <string>

#include "handheld/companion/companion_screen.h"
#include "handheld/companion/language.h"
#include "handheld/korvoimgview/folder.h"
#include "handheld/korvoimgview/movie_player.h"
#include "handheld/korvoimgview/texts.h"
#include "handheld/korvoimgview/view_fit.h"

namespace viewer {

class CViewerWindow : public handheld::CCompanionScreen {
  public:
    // Shows the file of that path, or the newest one in the picture folder when it is empty.
    explicit CViewerWindow(const std::wstring& path);

  protected:
    std::wstring Title() const override;
    std::wstring TitleNote() const override;
    std::vector<handheld::ToolButton> Buttons() const override;
    void PaintBody(HDC to) override;
    void OnBodyDown(POINT at) override;
    void OnBodyDrag(POINT from, POINT to) override;
    void OnBodyDoubleClick(POINT at) override;
    void OnCreated() override;
    void OnButton(int id) override;
    void OnKey(WPARAM key) override;
    void OnWheel(int steps) override;
    void OnTick() override;

  private:
    void Show(const std::wstring& name);
    void ShowMovie();
    void ShowMessage(Text text);
    void Step(int direction);
    void TogglePlaying();
    void ZoomTo(uint32_t scale);
    void BackToCamera();
    bool IsOnProgress(POINT at) const;
    void SeekTo(LONG x);  // of the movie, by a place on its progress bar

    bool HasPicture() const { return !m_picture.data.empty(); }
    const Pixels* Shown() const;
    Size Area() const;  // of the picture; a movie leaves room for its progress bar
    uint32_t Fit() const;
    void DrawPicture(HDC to) const;
    void DrawMessage(HDC to) const;
    void DrawProgress(HDC to) const;
    void DrawZoom(HDC to) const;

    CPictureDecoder m_decoder;
    const handheld::Language m_language;
    FilePlace m_place;                  // what is shown; the name is empty when there is nothing
    std::vector<std::wstring> m_names;  // of the folder, at the last step
    Pixels m_picture;                   // a picture, or
    std::unique_ptr<CMoviePlayer> m_movie;
    Text m_message = Text::noPictures;  // neither of them: why not
    View m_view = {};
    bool m_seeking = false;  // the mouse button went down on the progress bar
};

}  // namespace viewer
