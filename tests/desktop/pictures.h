// The picture files of a run.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/camera_process.h"

std::filesystem::path PictureFolder(const CameraProcess& camera);
std::filesystem::path PicturePath(const CameraProcess& camera, int number);

// Names in the picture folder, in order.
std::vector<std::string> FilesIn(const std::filesystem::path& folder);

std::string ReadBytes(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, const std::string& bytes);

// Whether a file is there and reads from the start of an image to its end.
bool IsWholePicture(const std::filesystem::path& file);
