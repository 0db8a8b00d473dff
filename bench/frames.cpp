#include "frames.h"

#include <QBackingStore>

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

// Loaded before Qt, so that a program under measurement needs no change.
namespace {

long microsecondsOf(const timeval &time)
{
    return time.tv_sec * 1000000L + time.tv_usec;
}

void reportTo(const char *path)
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    std::FILE *report = std::fopen(path, "w");
    std::FILE *memory = std::fopen("/proc/self/smaps_rollup", "r");
    if (!report || !memory)
        std::abort();
    std::fprintf(report, "Cpu: %ld us\n",
                 microsecondsOf(usage.ru_utime) + microsecondsOf(usage.ru_stime));
    char line[256];
    while (std::fgets(line, sizeof(line), memory))
        std::fputs(line, report);
    std::fclose(memory);
    std::fclose(report);
}

void endProgram(QWindow *)
{
    if (const char *path = std::getenv("FRAME_REPORT"))
        reportTo(path);
    _exit(0);
}

} // namespace

void (*frameShown)(QWindow *) = endProgram;

void QBackingStore::flush(const QRegion &region, QWindow *window, const QPoint &offset)
{
    using Flush = void (*)(QBackingStore *, const QRegion &, QWindow *, const QPoint &);
    static const auto flush = reinterpret_cast<Flush>(
        dlsym(RTLD_NEXT, "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint"));
    flush(this, region, window, offset);
    frameShown(window);
}
