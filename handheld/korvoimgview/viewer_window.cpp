#include "handheld/korvoimgview/viewer_window.h"

#include "handheld/companion/read_file.h"
#include "handheld/korvoimgview/start_camera.h"

using handheld::Icon;
using handheld::kBodyHeight;
using handheld::kBodyWidth;

namespace viewer {
namespace {

constexpr size_t kMostPictureBytes = 64u << 20, kMostMovieBytes = 256u << 20;
constexpr UINT kTickMs = 15;
constexpr int kKeyPan = 32;  // pixels that a key moves a picture that is larger than the screen

enum Button { kPrevious, kNext, kZoomOut, kZoomIn, kToggleZoom, kTogglePlay, kCamera };

}  // namespace

CViewerWindow::CViewerWindow(const std::wstring& path) : m_language(handheld::LanguageOf(Locale())) {
    m_place = path.empty() ? FilePlace{PictureFolder(), {}} : PlaceOfPath(path);
}

void CViewerWindow::OnCreated() {
    if (m_place.name.empty()) m_place.name = Newest(FilesIn(m_place.folder));
    Show(m_place.name);
}

// The folder is read at every step: the camera, or the user, may have changed it since.
void CViewerWindow::Show(const std::wstring& name) {
    SetTick(0);
    m_movie.reset();
    m_picture = {};
    m_place.name = name;
    m_names = Viewable(FilesIn(m_place.folder));
    if (name.empty()) return ShowMessage(Text::noPictures);
    if (KindOf(name) == FileKind::movie) return ShowMovie();

    std::vector<uint8_t> file;
    switch (handheld::ReadWholeFile(m_place.Path(), kMostPictureBytes, file)) {
        case handheld::ReadResult::missing:
            return ShowMessage(Text::missing);
        case handheld::ReadResult::tooLarge:
            return ShowMessage(Text::tooLarge);
        case handheld::ReadResult::ok:
            break;
    }
    const DecodeResult result = m_decoder.Decode(file, m_picture);
    if (result != DecodeResult::ok)
        return ShowMessage(result == DecodeResult::tooLarge ? Text::tooLarge : Text::damagedPicture);
    m_view = FitView({m_picture.width, m_picture.height}, Area());
    Refresh();
}

void CViewerWindow::ShowMovie() {
    std::vector<uint8_t> file;
    const handheld::ReadResult read = handheld::ReadWholeFile(m_place.Path(), kMostMovieBytes, file);
    if (read != handheld::ReadResult::ok)
        return ShowMessage(read == handheld::ReadResult::missing ? Text::missing : Text::tooLarge);
    m_movie = std::make_unique<CMoviePlayer>(m_decoder);
    if (!m_movie->Open(std::move(file))) return ShowMessage(Text::damagedMovie);
    TogglePlaying();
}

void CViewerWindow::ShowMessage(Text text) {
    SetTick(0);
    m_movie.reset();
    m_message = text;
    Refresh();
}

void CViewerWindow::Step(int direction) {
    m_names = Viewable(FilesIn(m_place.folder));
    const std::wstring name =
        direction < 0 ? NameBefore(m_names, m_place.name) : NameAfter(m_names, m_place.name);
    if (!name.empty()) Show(name);
}

void CViewerWindow::TogglePlaying() {
    if (m_movie->Playing())
        m_movie->Pause();
    else
        m_movie->Play();
    SetTick(m_movie->Playing() ? kTickMs : 0);
    m_movie->Advance();
    Refresh();
}

void CViewerWindow::OnTick() {
    if (!m_movie) return;
    const bool playing = m_movie->Playing();
    const bool changed = m_movie->Advance();
    if (!playing) SetTick(0);
    if (changed || !playing) Refresh();
}

void CViewerWindow::ZoomTo(uint32_t scale) {
    m_view = Zoomed(m_view, {m_picture.width, m_picture.height}, Area(), scale);
    Refresh();
}

void CViewerWindow::BackToCamera() {
    if (StartCamera()) return Close();
    m_picture = {};
    ShowMessage(Text::noCamera);
}

void CViewerWindow::OnButton(int id) {
    switch (id) {
        case kPrevious:
            return Step(-1);
        case kNext:
            return Step(1);
        case kZoomOut:
            return ZoomTo(SmallerScale(m_view.scale, Fit()));
        case kZoomIn:
            return ZoomTo(LargerScale(m_view.scale, Fit()));
        case kToggleZoom:
            return ZoomTo(ToggledScale(m_view.scale, Fit()));
        case kTogglePlay:
            return TogglePlaying();
        case kCamera:
            return BackToCamera();
    }
}

void CViewerWindow::OnKey(WPARAM key) {
    const bool pan = GetKeyState(VK_SHIFT) < 0;
    const int across = key == VK_LEFT ? kKeyPan : key == VK_RIGHT ? -kKeyPan : 0;
    const int down = key == VK_UP ? kKeyPan : key == VK_DOWN ? -kKeyPan : 0;
    if (pan && (across || down)) {
        OnBodyDrag({0, 0}, {across, down});
        return;
    }
    switch (key) {
        case VK_LEFT:
        case VK_PRIOR:
            return Step(-1);
        case VK_RIGHT:
        case VK_NEXT:
            return Step(1);
        case VK_UP:
        case VK_ADD:
        case VK_OEM_PLUS:
            return OnWheel(1);
        case VK_DOWN:
        case VK_SUBTRACT:
        case VK_OEM_MINUS:
            return OnWheel(-1);
        case VK_RETURN:
        case VK_SPACE:
            if (m_movie) return TogglePlaying();
            if (HasPicture()) ZoomTo(ToggledScale(m_view.scale, Fit()));
            return;
        case VK_ESCAPE:
            return BackToCamera();
    }
}

void CViewerWindow::OnWheel(int steps) {
    if (!HasPicture()) return;
    uint32_t scale = m_view.scale;
    for (; steps > 0; --steps) scale = LargerScale(scale, Fit());
    for (; steps < 0; ++steps) scale = SmallerScale(scale, Fit());
    ZoomTo(scale);
}

// On a movie's progress bar: to that place.  Elsewhere on a movie: stop or go on.
void CViewerWindow::OnBodyDown(POINT at) {
    if (!m_movie) return;
    m_seeking = IsOnProgress(at);
    if (m_seeking)
        SeekTo(at.x);
    else
        TogglePlaying();
}

void CViewerWindow::OnBodyDrag(POINT from, POINT to) {
    if (m_movie && m_seeking) SeekTo(to.x);
    if (!HasPicture()) return;
    m_view = Panned(m_view, {m_picture.width, m_picture.height}, Area(), to.x - from.x, to.y - from.y);
    Refresh();
}

void CViewerWindow::OnBodyDoubleClick(POINT) {
    if (HasPicture()) ZoomTo(ToggledScale(m_view.scale, Fit()));
}

std::vector<handheld::ToolButton> CViewerWindow::Buttons() const {
    const bool before = !NameBefore(m_names, m_place.name).empty(),
               after = !NameAfter(m_names, m_place.name).empty();
    std::vector<handheld::ToolButton> buttons = {{kPrevious, Icon::previous, before},
                                                 {kNext, Icon::next, after}};
    if (m_movie) {
        buttons.push_back({kTogglePlay, m_movie->Playing() ? Icon::pause : Icon::play, true});
    } else {
        const uint32_t scale = m_view.scale, fit = HasPicture() ? Fit() : scale;
        const bool whole = scale == fit;
        buttons.push_back({kZoomOut, Icon::zoomOut, HasPicture() && SmallerScale(scale, fit) != scale});
        buttons.push_back({kZoomIn, Icon::zoomIn, HasPicture() && LargerScale(scale, fit) != scale});
        buttons.push_back({kToggleZoom, whole ? Icon::ownSize : Icon::wholePicture, HasPicture()});
    }
    buttons.push_back({kCamera, Icon::camera, true});
    return buttons;
}

std::wstring CViewerWindow::Title() const {
    return m_place.name.empty() ? TextFor(Text::pictures, m_language) : m_place.name;
}

std::wstring CViewerWindow::TitleNote() const {
    const size_t place = PlaceOf(m_names, m_place.name);
    return place ? std::to_wstring(place) + L"/" + std::to_wstring(m_names.size()) : std::wstring();
}

const Pixels* CViewerWindow::Shown() const {
    return HasPicture() ? &m_picture : m_movie ? &m_movie->Picture() : nullptr;
}

uint32_t CViewerWindow::Fit() const {
    return FitScale({m_picture.width, m_picture.height}, Area());
}

}  // namespace viewer
