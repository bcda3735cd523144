// The operating system's path to the card's stream driver: plain functions with two bodies,
// driver_link.cpp for the handheld and a recording fake for the tests.
#pragma once
#include <cstdint>

using DriverHandle = void*;
inline const DriverHandle kNoDriver = reinterpret_cast<DriverHandle>(static_cast<intptr_t>(-1));

enum class DriverShare : uint32_t { exclusive = 0, readWrite = 3 };

// Opens "SIO1:" for reading and writing; kNoDriver when there is no card.
DriverHandle OpenDriver(DriverShare share);
void CloseDriver(DriverHandle handle);

// One control call.  True when the driver accepted it; returned receives the number of bytes it gave back.
bool ControlDriver(DriverHandle handle, uint32_t code, const void* input, uint32_t inputSize, void* output,
                   uint32_t& returned);

void PauseMilliseconds(uint32_t milliseconds);

// Asks the window to close, without waiting.
void PostClose(void* window);
