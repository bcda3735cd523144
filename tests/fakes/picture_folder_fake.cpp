#include "fakes/picture_folder_fake.h"

#include "settings/picture_folder.h"

int g_pictureFolderEnsured = 0;

void EnsurePictureFolder() { ++g_pictureFolderEnsured; }
