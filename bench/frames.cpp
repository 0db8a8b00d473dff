#include <QBackingStore>

#include <cstdlib>

#include <dlfcn.h>
#include <unistd.h>

// Loaded before Qt: the program ends at its first frame, once that is on the screen, and before it
// does, the command AT_FRAME can look at what it has used.
void QBackingStore::flush(const QRegion &region, QWindow *window, const QPoint &offset)
{
    using Flush = void (*)(QBackingStore *, const QRegion &, QWindow *, const QPoint &);
    const auto flush = reinterpret_cast<Flush>(
        dlsym(RTLD_NEXT, "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint"));
    flush(this, region, window, offset);
    unsetenv("LD_PRELOAD");
    const char *command = std::getenv("AT_FRAME");
    _exit(command && std::system(command) != 0 ? 1 : 0);
}
