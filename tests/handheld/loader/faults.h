// Says in a sentence where the processor stopped, and ends the process.
#pragma once

void HandleFaults();
