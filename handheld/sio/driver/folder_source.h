// The pictures of a folder, in turn.
#pragma once
#include <string>
#include <vector>

#include "handheld/sio/driver/picture_source.h"

namespace sio {

// JPEG and PNG files by name, each for 30 frames, over and over; files that come and go are noticed. Files
// that cannot be decoded are passed over; while none can be shown, a test card says so.
class CFolderSource : public CPictureSource {
  public:
    explicit CFolderSource(const std::wstring& folder) : m_folder(folder) {}
    void take(const View& view, uint32_t timeOfDay, Picture& into) override;

  private:
    std::vector<std::wstring> listNames() const;
    void showNext();

    const std::wstring m_folder;
    std::wstring m_name;  // of the picture shown, or of the last one tried
    Picture m_picture;    // in its own size; empty when none can be shown
    Picture m_fitted;     // the same in the view below
    View m_view{};
    int m_framesLeft = 0;
};

}  // namespace sio
