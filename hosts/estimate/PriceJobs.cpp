#include "PriceJobs.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <mutex>
#include <sstream>
#include <system_error>
#include <utility>

#include <QsUtils/QsUtils.h>

#include "Files.h"
#include "Progress.h"
#include "Refusal.h"

namespace Estimate {
namespace {

/// One bill and what comes of it.
struct Job {
    PriceOptions options;
    std::uint64_t bytes = 0;  ///< of its file
    std::string report;
    std::string messages;
    int status = CannotRun;
    Language language = Language::English;

    /// What is told when it never runs.
    void Expect(Language inLanguage) {
        language = inLanguage;
        std::ostringstream err;
        std::istringstream in;
        Refuse({in, err, err, false, language}, Say<Text::NoThread>());
        messages = std::move(err).str();
    }

    void Run() {
        std::istringstream in;
        std::ostringstream out;
        std::ostringstream err;
        const Streams streams{in, out, err, false, language};
        try {
            status = PriceBill(options, streams);
        } catch (const std::exception& error) {
            Refuse(streams, Say<Text::StoppedByError>(std::string_view(error.what())));
        } catch (...) {
            Refuse(streams, Say<Text::BillFailed>());
        }
        report = std::move(out).str();
        messages = std::move(err).str();
    }
};

/// Counts the jobs that are over.
class Countdown {
public:
    explicit Countdown(std::size_t count) : m_left(count) {}
    void Count() {
        const std::lock_guard lock(m_lock);
        --m_left;
        m_change.notify_all();
    }
    void Await() {
        std::unique_lock lock(m_lock);
        m_change.wait(lock, [this] { return m_left == 0; });
    }

private:
    std::mutex m_lock;
    std::condition_variable m_change;
    std::size_t m_left;
};

/// Counts its job once in any case: when its work is over, by whatever way, or when it is deleted without a
/// thread, of which nobody hears but its destructor.
class JobTask final : public CThreadTask {
public:
    JobTask(CQSThreadManager& manager, const CString& name, Job& job, Countdown& countdown)
        : CThreadTask(&manager, name, &job), m_count(countdown) {}

    std::int32_t ExecuteTask(int, std::function<void()>) override {
        const Count count(std::move(m_count));
        static_cast<Job*>(m_pParam)->Run();
        return 1;
    }

private:
    class Count {
    public:
        explicit Count(Countdown& countdown) : m_countdown(&countdown) {}
        Count(Count&& other) noexcept : m_countdown(std::exchange(other.m_countdown, nullptr)) {}
        Count& operator=(Count&&) = delete;
        ~Count() {
            if (m_countdown != nullptr)
                m_countdown->Count();
        }

    private:
        Countdown* m_countdown;
    };

    Count m_count;
};

class PriceJobs final : public ITaskResultNotify {
public:
    PriceJobs(const PriceOptions& options, const std::vector<std::string>& bills, const Streams& streams)
        : m_options(options), m_streams(streams), m_jobs(bills.size()), m_countdown(bills.size()) {
        for (std::size_t i = 0; i < bills.size(); ++i) {
            m_jobs[i].options = options;
            m_jobs[i].options.bill = bills[i];
            m_jobs[i].options.output.clear();
            m_jobs[i].Expect(streams.language);
            std::error_code ignored;
            const std::filesystem::path path(std::u8string(bills[i].begin(), bills[i].end()));
            const std::uintmax_t size = std::filesystem::file_size(path, ignored);
            m_jobs[i].bytes = ignored ? 0 : size;
            m_total += m_jobs[i].bytes;
        }
    }

    int Run(unsigned jobs) {
        RunJobs(jobs);
        int status = AllDone;
        for (const Job& job : m_jobs) {
            m_streams.err << job.messages;
            status = std::max(status, job.status);
        }
        return Write() ? status : CannotRun;
    }

    void OnTaskSuccess(const CString& name) override {
        int index = 0;
        IQsUtils::ParseToInteger(name, index);
        m_done += m_jobs[static_cast<std::size_t>(index)].bytes;
        m_progress->Show(m_done);
    }
    // A job that raises something has no result, and the bar stays where it is.
    void OnTaskFailed(const CString&, const CString&) override {}

private:
    void RunJobs(unsigned jobs) {
        Progress progress(m_streams.err, m_streams.errIsTerminal, m_total,
                          WordingOf(Text::ActivityPricing).In(m_streams.language));
        m_progress = &progress;
        progress.Show(0);
        CQSThreadManager manager(false);
        manager.SetParallelTaskCount(jobs);
        manager.AddTaskThreadMgrObserver(this);
        for (std::size_t i = 0; i < m_jobs.size(); ++i) {
            CString name;
            name.Format(u"%d", i);
            manager.StartTask(new JobTask(manager, name, m_jobs[i], m_countdown));
        }
        m_countdown.Await();
    }  // the manager returns when the last ones have been told as well

    void WriteReports(std::ostream& out) const {
        const char* separator = m_options.json ? "[\n" : "";
        for (const Job& job : m_jobs) {
            if (job.status == CannotRun)
                continue;
            out << separator;
            if (!m_options.json)
                out << "==> " << job.options.bill << " <==\n";
            out << job.report;
            separator = m_options.json ? ",\n" : "\n";
        }
        if (m_options.json)
            out << (*separator == '[' ? "[" : "") << "]\n";
    }

    bool Write() {
        if (m_options.output.empty() || m_options.output == "-") {
            WriteReports(m_streams.out);
            return true;
        }
        const Message failure =
            WriteOutput(m_options.output, [this](std::ostream& out) { WriteReports(out); });
        return failure.empty() || Refuse(m_streams, failure);
    }

    const PriceOptions& m_options;
    const Streams& m_streams;
    std::vector<Job> m_jobs;
    Countdown m_countdown;
    std::uint64_t m_total = 0;
    std::uint64_t m_done = 0;
    Progress* m_progress = nullptr;
};

/// Why several bills can't be priced so; empty when they can.
Message WhyNotSeveral(const PriceOptions& options, const std::vector<std::string>& bills) {
    if (std::find(bills.begin(), bills.end(), "-") != bills.end() || options.variables == "-" ||
        options.rates == "-")
        return Say<Text::OneStandardInput>();
    if (options.csv)
        return Say<Text::OneCsvTable>();
    if (!options.name.empty() || !options.area.empty())
        return Say<Text::OneNameAndArea>();
    return {};
}

}  // namespace

int PriceBills(const PriceOptions& options, const std::vector<std::string>& bills, unsigned jobs,
               const Streams& streams) {
    if (const Message reason = WhyNotSeveral(options, bills); !reason.empty()) {
        Refuse(streams, reason);
        return CannotRun;
    }
    return PriceJobs(options, bills, streams).Run(jobs);
}

}  // namespace Estimate
