#include "QsUtils/platform/DeepStack.h"

#include <exception>
#include <new>

#include <pthread.h>

namespace QsPlatform {

namespace {

struct Task {
    void (*work)(void*);
    void* argument;
    std::exception_ptr raised;
};

void* RunTask(void* argument) {
    Task& task = *static_cast<Task*>(argument);
    try {
        task.work(task.argument);
    } catch (...) {
        task.raised = std::current_exception();
    }
    return nullptr;
}

}  // namespace

void RunOnDeepStack(std::size_t bytes, void (*work)(void*), void* argument) {
    constexpr std::size_t page = 65536;
    Task task{work, argument, nullptr};
    pthread_attr_t attributes;
    pthread_t thread;
    if (pthread_attr_init(&attributes) != 0)
        throw std::bad_alloc();
    const bool started = pthread_attr_setstacksize(&attributes, (bytes + page - 1) / page * page) == 0 &&
                         pthread_create(&thread, &attributes, RunTask, &task) == 0;
    pthread_attr_destroy(&attributes);
    if (!started)
        throw std::bad_alloc();
    pthread_join(thread, nullptr);
    if (task.raised)
        std::rethrow_exception(task.raised);
}

}  // namespace QsPlatform
