// What still capture does to the world beside the card and the profile: plain functions with two bodies,
// app/capture_effects.cpp for the screen and a recording fake for the tests.
#pragma once
#include <atomic>
#include <cstdint>
#include <string>

enum class CaptureMessage { noSpace, pathTooLong };

// Tells the user, and waits for the answer.
void ShowCaptureMessage(CaptureMessage message);

// Greys or enables Play, Menu..., About..., Still and Video.
void EnableCaptureMenus(bool enabled);

// Starts the thread that clears the flag this many milliseconds after now, and the call that makes it end
// early without touching the flag.
void StartReviewTimer(std::atomic<bool>& showing, uint32_t milliseconds);
void StopReviewTimer();

// Reads a whole file; false when it is missing, empty of bytes to read or larger than the room.
bool ReadReviewFile(const std::wstring& path, uint8_t* room, uint32_t capacity, uint32_t& bytes);

// Has the live view painted in its turn, frames or no frames.
void PaintLiveView();

// The program's module handle, in the 32 bits that the driver's request has for it.
uint32_t SoundModule();
