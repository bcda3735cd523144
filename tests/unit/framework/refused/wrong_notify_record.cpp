// refused: A message handler takes exactly its message's arguments (see message_crackers.h), or none.
#include "framework/window.h"

class CProbe : public CWindow {
  public:
    Reply OnMessage(const Message& message) override;

  private:
    void OnTap(const NMTREEVIEWW&) {}
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::notify<1070, NM_CLICK, &CProbe::OnTap>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}
