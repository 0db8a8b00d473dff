#pragma once

class QWindow;

// Called for every frame once it is on the screen. Unless another is put here, it ends the program;
// where STOP_AT_FRAME is set, the program stops before, so that one can look at what it has used.
extern void (*frameShown)(QWindow *window);
