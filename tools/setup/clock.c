/* Loaded in front of the C library into a program of Wine: the clock of the day is ZV_CLOCK seconds
   ahead, or behind when that is negative. The clock that counts what passes is left alone.

   It takes no header of the C library, so that it is built for 32 bits without one. */
extern char* getenv(const char* name);
extern long long atoll(const char* text);

struct seconds_and_nanoseconds {
    long long seconds;
    int nanoseconds, upper; /* 64 bits wide in a 64-bit program */
};
struct seconds_and_microseconds {
    long long seconds, microseconds;
};

enum { REALTIME = 0, REALTIME_COARSE = 5 };

static long ask_system(long clock, struct seconds_and_nanoseconds* time) {
    long result;
#ifdef __x86_64__
    __asm__ volatile("syscall" : "=a"(result) : "a"(228L), "D"(clock), "S"(time) : "rcx", "r11", "memory");
#else
    __asm__ volatile("int $0x80" : "=a"(result) : "a"(403L), "b"(clock), "c"(time) : "memory");
#endif
    return result;
}

static long long offset(void) {
    const char* text = getenv("ZV_CLOCK");
    return text ? atoll(text) : 0;
}

/* Wine's 32-bit libraries ask for the times of 64 bits by other names. */
#ifdef __x86_64__
#define NAME(wide, narrow) narrow
#else
#define NAME(wide, narrow) wide
#endif

int NAME(__clock_gettime64, clock_gettime)(int clock, struct seconds_and_nanoseconds* time) {
    if (ask_system(clock, time) < 0) return -1;
    if (clock == REALTIME || clock == REALTIME_COARSE) time->seconds += offset();
    return 0;
}

int NAME(__gettimeofday64, gettimeofday)(struct seconds_and_microseconds* time, void* zone) {
    struct seconds_and_nanoseconds now = {0, 0, 0};
    (void)zone;
    if (ask_system(REALTIME, &now) < 0) return -1;
    time->seconds = now.seconds + offset();
    time->microseconds = now.nanoseconds / 1000;
    return 0;
}

long long NAME(__time64, time)(long long* kept) {
    struct seconds_and_nanoseconds now = {0, 0, 0};
    ask_system(REALTIME, &now);
    now.seconds += offset();
    if (kept) *kept = now.seconds;
    return now.seconds;
}
