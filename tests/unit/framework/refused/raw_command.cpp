// refused: WM_COMMAND and WM_NOTIFY have rows of their own: On::command, On::control, On::notify.
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
        On::message<WM_COMMAND, &CProbe::OnIt>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
