/* Empty: MinGW-w64 asks for it, and nothing here aligns memory for vector units. */
