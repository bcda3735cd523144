// What the golden list says of each picture: one line for its stream and one for every mode.
#pragma once
#include <string>
#include <vector>

#include "jpeg/scan_engine.h"

// Names of the pictures, in the list's order.
std::vector<std::string> goldenPictures();

// The lines of one picture, decoded by that engine.
std::vector<std::string> goldenLines(const std::string& picture, const jpeg::ScanEngine& engine);
