#include "support/processcost.h"

#include "support/figures.h"

#include <QFile>

#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The most that was resident in this process, in megabytes.
double peakMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

ProcessCost costOf(const std::function<void()> &prepare, const std::function<void()> &work)
{
    int ends[2];
    if (pipe(ends) != 0)
        qFatal("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        prepare();
        const double start = processorMilliseconds();
        work();
        const ProcessCost cost{processorMilliseconds() - start, peakMegabytes()};
        _exit(write(ends[1], &cost, sizeof cost) == sizeof cost ? 0 : 1);
    }
    ProcessCost cost{};
    if (read(ends[0], &cost, sizeof cost) != sizeof cost)
        qFatal("the measured process failed");
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    return cost;
}

} // namespace

ProcessCost medianCost(int runs, const std::function<void()> &work)
{
    return medianCost(
        runs, [] {}, work);
}

ProcessCost medianCost(int runs, const std::function<void()> &prepare, const std::function<void()> &work)
{
    QVector<double> times;
    QVector<double> memory;
    for (int run = 0; run < runs; ++run) {
        const ProcessCost cost = costOf(prepare, work);
        times.append(cost.milliseconds);
        memory.append(cost.megabytes);
    }
    return {median(times), median(memory)};
}
