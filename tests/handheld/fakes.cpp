// The fakes of the unit tests, on the doubles: what the tests prepare and look at is what the image meets.
#include "fakes/capture_fake.h"
#include "fakes/profile_fake.h"
#include "handheld/doubles/registry.h"

void ClearFakeProfile() {
    RegistryValues().clear();
}
