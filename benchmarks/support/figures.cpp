#include "support/figures.h"

#include <cstdio>
#include <ctime>

namespace {

QString verdict(bool met)
{
    return met ? QStringLiteral("met") : QStringLiteral("MISSED");
}

} // namespace

double median(QVector<double> figures)
{
    const int middle = figures.size() / 2;
    std::nth_element(figures.begin(), figures.begin() + middle, figures.end());
    return figures.at(middle);
}

double processorMilliseconds()
{
    return double(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

void printAgainstTarget(const QString &what, int rows, const QVector<double> &floor, const StepTimes &times,
                        Target target)
{
    const double least = median(floor);
    const double time = median(times.elapsed);
    const double most = target.factor * least + target.extra;
    printLine(
        QStringLiteral("%1  rows %2  floor %3 ms  time %4 ms (own work %5 ms)  target %6 ms (%7 x floor + %8 ms)  %9")
            .arg(what, -44)
            .arg(rows, 4)
            .arg(least, 5, 'f', 1)
            .arg(time, 6, 'f', 1)
            .arg(median(times.worked), 6, 'f', 1)
            .arg(most, 6, 'f', 1)
            .arg(target.factor)
            .arg(target.extra)
            .arg(verdict(time <= most)));
}

void printAgainstLimit(const QString &what, double figure, double limit, const QString &unit)
{
    printLine(QStringLiteral("%1  %2 %3  at most %4 %3  %5")
                  .arg(what, -52)
                  .arg(figure, 0, 'f', 2)
                  .arg(unit)
                  .arg(limit, 0, 'f', 2)
                  .arg(verdict(figure <= limit)));
}

void printLine(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}
