// The fakes of the unit tests, on the doubles: what the tests prepare and look at is what the image meets.
#include <gtest/gtest.h>

#include "fakes/profile_fake.h"
#include "handheld/doubles/registry.h"
#include "handheld/doubles/system.h"

void ClearFakeProfile() {
    RegistryValues().clear();
}

void testing::internal::CaptureStdout() {
    TheSystem().standardOutput.clear();
}

std::string testing::internal::GetCapturedStdout() {
    return TheSystem().standardOutput;
}
