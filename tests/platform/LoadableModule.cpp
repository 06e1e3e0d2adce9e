// What a companion module looks like from outside: plain functions and objects under their own names.
#if defined(_WIN32)
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

EXPORTED int Answer() {
    return 42;
}

EXPORTED int counter;
int counter = 0;

EXPORTED int Count() {
    return ++counter;
}
