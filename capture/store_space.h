// Room in the object store, and how many pictures or seconds fit.  Portable but for FreeStoreBytes' body.
#pragma once
#include <cstdint>

#include "app/screen_state.h"
#include "settings/camera_settings.h"

// Free bytes available to the caller on "\My Documents\", their low 32 bits only.  False when the store
// cannot be asked.  Two bodies: store_space_ce.cpp and the tests' fake.
bool FreeStoreBytes(uint32_t& bytes);

// One answer of the store, kept for as long as `asked` says so.
struct StoreRoom {
    bool asked = false;
    uint32_t freeBytes = 0;
};

// The kept answer, or the store's; 0 when it cannot be asked.
uint32_t FreeBytes(StoreRoom& room);

// Kilobytes a picture takes before the quality factor; 0 when resolution or selector lie outside the table.
uint32_t PictureEstimate(const CameraSettings& settings, const ScreenState& screen);

// Pictures that fit into this many free bytes.
uint32_t PicturesIn(uint32_t freeBytes, const CameraSettings& settings, const ScreenState& screen);
uint32_t PicturesLeft(const CameraSettings& settings, const ScreenState& screen);

// Whole seconds of movie that fit into this many free bytes; aviResolution 1 is 160x120, all others 320x240.
uint32_t VideoSecondsIn(uint32_t freeBytes, int32_t aviResolution);
uint32_t VideoSecondsLeft(int32_t aviResolution);
