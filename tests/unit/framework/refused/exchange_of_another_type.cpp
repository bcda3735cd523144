// refused: An exchanged member is the window's own std::wstring (text), int (number, radio) or bool (check).
#include "framework/dialog.h"

class CProbe : public CDialog {
  public:
    CProbe() : CDialog(1) {}

  protected:
    bool Exchange(ExchangeDirection direction) override;

  private:
    long m_number = 0;
    bool m_sound = false;
};

bool CProbe::Exchange(ExchangeDirection direction) {
    using Data = MembersOf<CProbe>;
    static constexpr ExchangeRow rows[] = {
        Data::number<1002, &CProbe::m_number>,
    };
    return ExchangeAll<rows>(*this, direction);
}
