#include "fakes/store_fake.h"

#include "capture/store_space.h"

namespace {
StoreFake g_fake;
}

StoreFake& ResetStoreFake() {
    g_fake = {};
    return g_fake;
}

bool FreeStoreBytes(uint32_t& bytes) {
    ++g_fake.questions;
    bytes = g_fake.freeBytes;
    return g_fake.readable;
}
