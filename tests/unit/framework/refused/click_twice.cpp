// refused: A message table lists the same message twice.
#include "framework/window.h"

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;

  private:
    void OnOne() {}
    void OnTwo() {}
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::command<1601, &CProbe::OnOne>,
        On::control<1601, BN_CLICKED, &CProbe::OnTwo>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
