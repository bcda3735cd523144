#include "handheld/sio/driver/picture_source.h"

#include "handheld/common/settings.h"
#include "handheld/sio/card/test_card.h"
#include "handheld/sio/driver/folder_source.h"
#include "handheld/sio/driver/text.h"
#include "handheld/sio/scene/scene.h"

namespace sio {
namespace {

class CSceneSource : public CPictureSource {
  public:
    void take(const View& view, uint32_t timeOfDay, Picture& into) override {
        m_scene.draw(timeOfDay, view, into);
    }

  private:
    CScene m_scene;
};

class CUnknownSource : public CPictureSource {
  public:
    explicit CUnknownSource(const std::wstring& camera) : m_camera(toUtf8(camera)) {}
    void take(const View& view, uint32_t, Picture& into) override {
        drawTestCard("UNKNOWN CAMERA SOURCE", m_camera, view, into);
    }

  private:
    const std::string m_camera;
};

}  // namespace

std::unique_ptr<CPictureSource> makePictureSource(const std::wstring& camera) {
    const std::wstring folder = L"folder:";
    if (camera == L"scene") return std::make_unique<CSceneSource>();
    if (camera.compare(0, folder.size(), folder) == 0) {
        return std::make_unique<CFolderSource>(handheld::FromUnixPath(camera.substr(folder.size())));
    }
    return std::make_unique<CUnknownSource>(camera);
}

}  // namespace sio
