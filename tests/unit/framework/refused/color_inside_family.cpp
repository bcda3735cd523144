// refused: A message table lists the same message twice.
#include "framework/window.h"

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;

  private:
    HBRUSH OnColors(HDC, HWND) { return nullptr; }
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::message<WM_CTLCOLORSTATIC, &CProbe::OnColors>,
        On::colors<&CProbe::OnColors>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
