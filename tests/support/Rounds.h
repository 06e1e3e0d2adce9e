// How long a comparison on random input goes on.
#pragma once

/// All rounds in a plain build. A sanitizer makes each of them ten to fifty times slower and looks for faults
/// that show in the first ones; the seeds are the same, so it sees the same beginning.
constexpr int Rounds(int all) {
#if defined(__SANITIZE_THREAD__)
    return all / 40;
#elif defined(__SANITIZE_ADDRESS__)
    return all / 8;
#else
    return all;
#endif
}

/// The same for a comparison that asks the file system all the time: a call of Wine's takes many times as
/// long.
constexpr int FileRounds(int all) {
#if defined(_WIN32)
    return all / 4;
#else
    return Rounds(all);
#endif
}

/// How many threads a test may make where it would make so many if they were cheap. Wine takes a millisecond
/// or more for each, the other system some microseconds.
constexpr int ThreadRounds(int all) {
#if defined(_WIN32)
    return all / 20;
#else
    return all;
#endif
}

/// Of the cases that take a process each, every how manieth is tried. Wine takes a quarter of a second for
/// one.
#if defined(_WIN32)
inline constexpr int ProcessStep = 3;
#else
inline constexpr int ProcessStep = 1;
#endif
