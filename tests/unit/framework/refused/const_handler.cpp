// refused: A message handler is a member function that is not const.
#include "framework/window.h"

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;

  private:
    void OnIt() const {}
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::message<WM_USER + 1, &CProbe::OnIt>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
