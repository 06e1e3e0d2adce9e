// The host of the tests' installations for what writes the log: does what its arguments say, and writes each
// answer on a line of its own. Arguments and answers are escaped.
//   log TEXT       a line of the log
//   track NAME     a tracker, and a copy of it, each of which reports
//   work MS AGO NAME  a tracker of so long a sleep that began so much earlier, and a copy made at its end
//   assign A B     two trackers, of which the first is assigned to the second
//   thread NAME    a thread; answers its id as the log writes it
//   nothread       a thread that can't be had
//   tasks          a run of the task manager through all that it logs
//   leave WHAT     threads that do WHAT until the process is gone; the last command
#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <thread>

#include <QsUtils/QsUtils.h>

#include "tests/support/Escapes.h"
#include "tests/tasks/TestTasks.h"

namespace {

void Answer(const CString& text) {
    std::puts(Escaped(text.View()).c_str());
}

std::uint32_t DoNothing(void*) {
    return 0;
}

void RunThread(const CString& name, QsThreadRoutine routine) {
    std::uint32_t id = 1;
    const HANDLE thread = IQsUtils::StartThread(routine, nullptr, name, &id);
    if (thread != nullptr) {
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }
    CString text;
    text.Format(u"0x%x", id);
    Answer(text);
}

/// One task runs, one waits, one comes twice, and the waiting one is started by the first one's end.
void RunTasks() {
    Gate gate;
    Journal told;
    JournalObserver observer(told);
    OpenManager manager(false);
    manager.AddTaskThreadMgrObserver(&observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(new TestTask(manager, u"第一", [&] {
        gate.Pass();
        return 1;
    }));
    manager.StartTask(new TestTask(manager, u"second", [] { return 0; }));
    manager.StartTask(new TestTask(manager, u"second", [] { return 0; }));
    manager.EnterWaitQueue(new TestTask(manager, u"second", [] { return 0; }));
    gate.Open();
    told.Await(2);
}

std::atomic<int> theBusy{0};

std::uint32_t LogForEver(void*) {
    for (++theBusy;;)
        IQsUtils1::LogError(u"[INFO]: still here");
}

std::uint32_t StartForEver(void*) {
    for (++theBusy;;) {
        const HANDLE thread = IQsUtils::StartThread(DoNothing, nullptr, u"another", nullptr);
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }
}

/// Never ended, as hosts do it that let the system end all.
class EndlessTasks : public ITaskResultNotify {
public:
    EndlessTasks() { m_manager.AddTaskThreadMgrObserver(this); }
    void OnTaskSuccess(const CString& name) override {
        ++theBusy;
        Start(name);
    }
    void OnTaskFailed(const CString&, const CString&) override {}
    void Start(const CString& name) {
        m_manager.StartTask(new TestTask(m_manager, name, [] { return 1; }));
    }

private:
    CQSThreadManager m_manager{false};
};

bool LeaveBusyThreads(const CString& what) {
    constexpr int count = 4;
    if (what == u"tasks") {
        auto* const tasks = new EndlessTasks;
        for (const char16_t* name : {u"a", u"b", u"c", u"d"})
            tasks->Start(name);
    } else {
        const QsThreadRoutine routine = what == u"log" ? LogForEver : StartForEver;
        for (int i = 0; i < count; ++i)
            if (IQsUtils::StartThread(routine, nullptr, u"busy", nullptr) == nullptr)
                return false;
    }
    while (theBusy < count)
        std::this_thread::yield();
    return true;
}

class Arguments {
public:
    Arguments(int count, char** texts) : m_next(texts + 1), m_end(texts + count) {}

    bool HasNext() const { return m_next != m_end; }
    CString Next() { return HasNext() ? CString(Unescaped(*m_next++)) : CString(); }

private:
    char** m_next;
    char** m_end;
};

// An explicit instantiation may name a private member.
struct StartTick {
    using Member = std::uint32_t CTimeCostTracker::*;
    friend constexpr Member MemberOf(StartTick);
};
template <typename Tag, typename Tag::Member member>
struct Opened {
    friend constexpr typename Tag::Member MemberOf(Tag) { return member; }
};
template struct Opened<StartTick, &CTimeCostTracker::m_nStartTick>;

/// A tracker of so many milliseconds of sleep, which began so many more ago, and a copy of it.
void TrackWork(std::uint32_t sleep, std::uint32_t ago, const CString& name) {
    CTimeCostTracker tracker(name);
    tracker.*MemberOf(StartTick()) -= ago;
    std::this_thread::sleep_for(std::chrono::milliseconds(sleep));
    const CTimeCostTracker copy(tracker);
}

std::uint32_t Number(const CString& text) {
    int number = 0;
    IQsUtils::ParseToInteger(text, number);
    return static_cast<std::uint32_t>(number);
}

bool Do(const CString& command, Arguments& arguments) {
    if (command == u"log") {
        IQsUtils1::LogError(arguments.Next());
    } else if (command == u"track") {
        const CTimeCostTracker tracker(arguments.Next());
        const CTimeCostTracker copy(tracker);
    } else if (command == u"work") {
        const std::uint32_t sleep = Number(arguments.Next());
        const std::uint32_t ago = Number(arguments.Next());
        TrackWork(sleep, ago, arguments.Next());
    } else if (command == u"assign") {
        CTimeCostTracker first(arguments.Next());
        CTimeCostTracker second(arguments.Next());
        second = first;
    } else if (command == u"thread") {
        RunThread(arguments.Next(), DoNothing);
    } else if (command == u"nothread") {
        RunThread(u"none", nullptr);
    } else if (command == u"tasks") {
        RunTasks();
    } else if (command == u"leave") {
        return LeaveBusyThreads(arguments.Next());
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Arguments arguments(argc, argv);
        while (arguments.HasNext()) {
            if (!Do(arguments.Next(), arguments))
                return 2;
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
