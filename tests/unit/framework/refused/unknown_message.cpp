// refused: This message has no cracker yet: add its line to message_crackers.h.
#include "framework/window.h"

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;

  private:
    void OnIt() {}
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::message<WM_POWERBROADCAST, &CProbe::OnIt>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
