#include "support/figures.h"

#include <cstdio>

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

void printAgainstTarget(const QString &what, int rows, double floor, double time, Target target)
{
    const double most = target.factor * floor + target.extra;
    printLine(QStringLiteral("%1  rows %2  floor %3 ms  time %4 ms  target %5 ms (%6 x floor + %7 ms)  %8")
                  .arg(what, -52)
                  .arg(rows, 5)
                  .arg(floor, 7, 'f', 1)
                  .arg(time, 7, 'f', 1)
                  .arg(most, 7, 'f', 1)
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
