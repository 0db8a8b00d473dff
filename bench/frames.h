#pragma once

class QWindow;

// Called for every frame once it is on the screen. Unless another is put here, it ends the program;
// where FRAME_REPORT names a file, that gets what the start has cost until then.
extern void (*frameShown)(QWindow *window);
