// refused: A message handler returns void, Then, LRESULT, HBRUSH or Reply.
#include "framework/window.h"

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;

  private:
    bool OnTimer(UINT_PTR) { return true; }
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::message<WM_TIMER, &CProbe::OnTimer>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
