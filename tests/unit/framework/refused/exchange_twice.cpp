// refused: An exchange table lists the same control twice.
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
        Data::check<1006, &CProbe::m_sound>,
        Data::check<1006, &CProbe::m_sound>,
    };
    return ExchangeAll<rows>(*this, direction);
}
