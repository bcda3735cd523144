// The handheld's card slot, worked by hand.
#pragma once

namespace handheld {

// True also as long as no program has asked for the card.
bool IsCardIn();

// Pulls the card out or puts it back.  A slot that was empty from the start stays so.
void MoveCard(bool in);

}  // namespace handheld
