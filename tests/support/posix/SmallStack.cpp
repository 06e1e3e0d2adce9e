#include "tests/support/SmallStack.h"

#include <pthread.h>

void RunOnSmallStack(std::size_t bytes, std::function<void()> work) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    bytes *= 4;
#endif
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_t thread;
    const auto run = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    if (pthread_create(&thread, &attributes, run, &work) == 0)
        pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}
