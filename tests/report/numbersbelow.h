#pragma once

#include <QRandomGenerator>
#include <QVector>

/// Whole numbers to compare a routine with a reference: 0 to 9999, the neighbours of every power of ten, and 6000 more
/// of all sizes below `end`, a third of them with one group of three zeros. The same numbers in every run.
inline QVector<qint64> numbersBelow(qint64 end)
{
    QVector<qint64> numbers;
    for (qint64 number = 0; number < 10000; ++number)
        numbers.append(number);
    for (qint64 power = 10000; power <= end / 10; power *= 10)
        numbers << power - 1 << power << power + 1 << 2 * power - 1 << 2 * power << 2 * power + 1;
    QRandomGenerator generator(20201231);
    qint64 size = 100000;
    for (int count = 0; count < 6000; ++count) {
        qint64 number = static_cast<qint64>(generator.generate64() >> 1) % size;
        if (count % 3 == 0) {
            const qint64 group = count % 2 == 0 ? 1 : 1000;
            number -= number / group % 1000 * group;
        }
        numbers.append(number);
        size = size > end / 10 ? 100000 : size * 10;
    }
    return numbers;
}
