// The way out when the program cannot go on: no thread of it runs any further.
#pragma once

[[noreturn]] void EndProgram();
