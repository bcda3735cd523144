#pragma once

#define IDB_KEY_PAD 1
