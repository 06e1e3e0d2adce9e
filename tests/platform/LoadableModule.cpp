// What a companion module looks like from outside: plain functions and objects under their own names.
#define EXPORTED extern "C" TEST_EXPORT

EXPORTED int Answer() {
    return 42;
}

EXPORTED int counter;
int counter = 0;

EXPORTED int Count() {
    return ++counter;
}
