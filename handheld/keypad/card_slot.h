// The handheld's card slot, worked by hand.
#pragma once

namespace handheld {

bool IsCardIn();

// Pulls the card out or puts it back.  A slot that was empty from the start stays so.
void MoveCard(bool in);

}  // namespace handheld
