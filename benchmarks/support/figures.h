#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QVector>

#include <algorithm>

/// The median of an odd or even number of figures, the upper one of the middle two.
double median(QVector<double> figures);

/// Milliseconds of processor time that this program has used.
double processorMilliseconds();

/// The times of one step in milliseconds: from start to end, and what this program worked in them, which other programs
/// on the machine disturb little.
struct StepTimes {
    QVector<double> elapsed;
    QVector<double> worked;

    template<typename Step> void measure(Step step)
    {
        const double start = processorMilliseconds();
        QElapsedTimer timer;
        timer.start();
        step();
        elapsed.append(double(timer.nsecsElapsed()) / 1e6);
        worked.append(processorMilliseconds() - start);
    }
};

/// What a step may take: `factor` times the floor of its statement and `extra` milliseconds.
struct Target {
    double factor;
    double extra;
};

/// One line on the standard output: what was done, rows, floor, time, how much of it this program worked, target and
/// "met" or "MISSED". Floor and times are medians.
void printAgainstTarget(const QString &what, int rows, const QVector<double> &floor, const StepTimes &times,
                        Target target);
/// One line: what was done, the figure with its unit, the most it may be and "met" or "MISSED".
void printAgainstLimit(const QString &what, double figure, double limit, const QString &unit);
/// A line as it stands.
void printLine(const QString &line);
