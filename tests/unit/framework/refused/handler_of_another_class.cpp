// refused: A message handler belongs to the table's own window class or to a base of it.
#include "framework/window.h"

class COther : public CWindow {
  public:
    void OnTimer(UINT_PTR) {}
};

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::message<WM_TIMER, &COther::OnTimer>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
