// The folder for pictures in the object store.
#pragma once

// Creates "\My Documents\My Pictures" if a search does not find it.
void EnsurePictureFolder();
