/* Loaded in front of the C library into a program of Wine: the clock of the day is ZV_CLOCK seconds
   ahead, or behind when that is negative.

   The clock that counts what passes is left alone, unless ZV_CLOCK_START names a file: from the second
   of the system's clock that this file holds, as soon as there is one, all clocks run ZV_CLOCK_RATE
   times as fast, and who waits for something waits so much shorter. For that the Wine server needs
   this library too.

   It takes no header of the C library, so that it is built for 32 bits without one. */
extern char* getenv(const char* name);
extern long long atoll(const char* text);
extern int open(const char* path, int flags, ...);
extern long read(int file, void* bytes, unsigned long count);
extern int close(int file);
extern int* __errno_location(void);

struct seconds_and_nanoseconds {
    long long seconds;
    int nanoseconds, upper; /* 64 bits wide in a 64-bit program */
};
struct seconds_and_microseconds {
    long long seconds, microseconds;
};

enum { REALTIME = 0, PROCESSOR = 2, PROCESSOR_OF_THREAD = 3, REALTIME_COARSE = 5 };
#define SECOND 1000000000LL

#ifdef __x86_64__
enum { CLOCK_GETTIME = 228, POLL = 7, EPOLL_WAIT = 232 };
#else
enum { CLOCK_GETTIME = 403, POLL = 168, EPOLL_WAIT = 256 };
#endif

static long ask(long call, long a, long b, long c, long d) {
    long result;
#ifdef __x86_64__
    register long fourth __asm__("r10") = d;
    __asm__ volatile("syscall"
                     : "=a"(result)
                     : "a"(call), "D"(a), "S"(b), "d"(c), "r"(fourth)
                     : "rcx", "r11", "memory");
#else
    __asm__ volatile("int $0x80" : "=a"(result) : "a"(call), "b"(a), "c"(b), "d"(c), "S"(d) : "memory");
#endif
    return result;
}

static long long number(const char* name) {
    const char* text = getenv(name);
    return text ? atoll(text) : 0;
}

/* The second from which all runs faster; 0 while there is none. */
static long long start(void) {
    static long long known;
    const char* path = known ? 0 : getenv("ZV_CLOCK_START");
    char text[24];
    long length;
    int file;
    if (!path) return known;
    file = open(path, 0);
    if (file < 0) return 0;
    length = read(file, text, sizeof text - 1);
    close(file);
    text[length > 0 ? length : 0] = 0;
    return known = atoll(text);
}

/* Adds what clocks that run faster are ahead. A division of 64 bits would need a library that this
   system has not got for 32 bits. */
static void run_ahead(struct seconds_and_nanoseconds* time) {
    struct seconds_and_nanoseconds now = {0, 0, 0};
    const long long from = start(), faster = number("ZV_CLOCK_RATE") - 1;
    long long nanoseconds;
    if (!from) return;
    ask(CLOCK_GETTIME, REALTIME, (long)&now, 0, 0);
    if (now.seconds < from) return;
    time->seconds += (now.seconds - from) * faster;
    for (nanoseconds = time->nanoseconds + now.nanoseconds * faster; nanoseconds >= SECOND; nanoseconds -= SECOND) {
        time->seconds++;
    }
    time->nanoseconds = (int)nanoseconds;
}

static long tell(long clock, struct seconds_and_nanoseconds* time) {
    const long result = ask(CLOCK_GETTIME, clock, (long)time, 0, 0);
    if (result < 0 || clock == PROCESSOR || clock == PROCESSOR_OF_THREAD) return result;
    run_ahead(time);
    if (clock == REALTIME || clock == REALTIME_COARSE) time->seconds += number("ZV_CLOCK");
    return result;
}

/* Wine's 32-bit libraries ask for the times of 64 bits by other names. */
#ifdef __x86_64__
#define NAME(wide, narrow) narrow
#else
#define NAME(wide, narrow) wide
#endif

int NAME(__clock_gettime64, clock_gettime)(int clock, struct seconds_and_nanoseconds* time) {
    return tell(clock, time) < 0 ? -1 : 0;
}

int NAME(__gettimeofday64, gettimeofday)(struct seconds_and_microseconds* time, void* zone) {
    struct seconds_and_nanoseconds now = {0, 0, 0};
    (void)zone;
    if (tell(REALTIME, &now) < 0) return -1;
    time->seconds = now.seconds;
    time->microseconds = now.nanoseconds / 1000;
    return 0;
}

long long NAME(__time64, time)(long long* kept) {
    struct seconds_and_nanoseconds now = {0, 0, 0};
    tell(REALTIME, &now);
    if (kept) *kept = now.seconds;
    return now.seconds;
}

/* A wait is never made shorter than a millisecond: at its end some clock may not be there yet. */
static int shortened(int milliseconds) {
    const int rate = start() ? (int)number("ZV_CLOCK_RATE") : 1;
    return milliseconds <= 0 ? milliseconds : (milliseconds + rate - 1) / rate;
}

static int answer(long result) {
    if (result >= 0) return (int)result;
    *__errno_location() = (int)-result;
    return -1;
}

int poll(void* files, unsigned long count, int milliseconds) {
    return answer(ask(POLL, (long)files, (long)count, shortened(milliseconds), 0));
}

int epoll_wait(int set, void* events, int most, int milliseconds) {
    return answer(ask(EPOLL_WAIT, set, (long)events, most, shortened(milliseconds)));
}
