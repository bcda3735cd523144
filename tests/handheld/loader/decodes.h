// Decodes that a counter of instructions watches from outside.
#pragma once

// Pairs "FILE MODE": decodes each by every engine of the image, between two marks, and prints
// "decoded NAME:MODE image-ENGINE FILE" for it. NAME: the file's, up to its last "-". The result is the
// program's.
int CountDecodes(int count, const char** arguments);
