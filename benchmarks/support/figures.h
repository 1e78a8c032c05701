#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QVector>

#include <algorithm>

/// The median of an odd or even number of figures, the upper one of the middle two.
double median(QVector<double> figures);

/// Runs a step `runs` times after one run that does not count, and gives the median of the times in milliseconds.
/// `prepare` is called before each run, untimed, and gives the step to be timed.
template<typename Prepare> double medianOf(int runs, Prepare prepare)
{
    QVector<double> times;
    for (int run = 0; run <= runs; ++run) {
        auto step = prepare();
        QElapsedTimer timer;
        timer.start();
        step();
        if (run > 0)
            times.append(double(timer.nsecsElapsed()) / 1e6);
    }
    return median(times);
}

/// What a step may take: `factor` times the floor of its statement and `extra` milliseconds.
struct Target {
    double factor;
    double extra;
};

/// One line on the standard output: what was done, rows, floor, time, target and "met" or "MISSED".
void printAgainstTarget(const QString &what, int rows, double floor, double time, Target target);
/// One line: what was done, the figure with its unit, the most it may be and "met" or "MISSED".
void printAgainstLimit(const QString &what, double figure, double limit, const QString &unit);
/// A line as it stands.
void printLine(const QString &line);
