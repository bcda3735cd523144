// Counts how often the picture folder was ensured.
#pragma once

extern int g_pictureFolderEnsured;
