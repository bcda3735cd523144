// What the tests shared by both bodies of the profile need from the one they are linked with.
#pragma once
#include "framework/profile.h"

// Removes everything below the profile's key.
void ClearStorage(const Profile& profile);
