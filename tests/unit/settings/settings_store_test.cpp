#include <gtest/gtest.h>

#include "fakes/picture_folder_fake.h"
#include "fakes/profile_fake.h"
#include "settings/load_settings.h"
#include "settings/settings_keys.h"

namespace {
}
