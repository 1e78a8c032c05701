// Whether the board gives its memory back: it is opened, shown and disposed of 1,000 times, and the resident memory
// after the last time may be 2 MB above that after the fiftieth. Run with --socket and --database of
// benchmarks/largefirm.sh.
#include "board/menuwidget.h"
#include "support/figures.h"
#include "support/largefirm.h"
#include "support/paintwatch.h"

#include <QApplication>
#include <QFile>
#include <QTimer>

#include <unistd.h>

namespace {

constexpr int warmUp = 50;
constexpr int openings = 1000;
constexpr double mostGrowth = 2;

double residentMegabytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QFile::ReadOnly))
        qFatal("no /proc/self/statm");
    const double pages = statm.readAll().split(' ').value(1).toDouble();
    return pages * double(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

void run()
{
    const LargeFirm firm;
    PaintWatch watch;
    const QMap<QString, QVariant> filter{{QStringLiteral("menu"), true}, {QStringLiteral("branch"), firm.branchName()}};
    double afterWarmUp = 0;
    for (int opening = 1; opening <= openings; ++opening) {
        auto *board = new MenuWidget(firm.db(), 1, nullptr);
        board->initData();
        QCoreApplication::processEvents();
        board->filterSetter(filter);
        watch.show(board);
        board->deleteLater();
        watch.settle();
        if (opening == warmUp)
            afterWarmUp = residentMegabytes();
        if (opening % 50 == 0)
            printLine(QStringLiteral("after %1 boards: %2 MB").arg(opening).arg(residentMegabytes(), 0, 'f', 1));
    }
    printLine(QStringLiteral("after %1 boards: %2 MB").arg(warmUp).arg(afterWarmUp, 0, 'f', 1));
    printAgainstLimit(QStringLiteral("growth of the resident memory, board %1 to board %2").arg(warmUp).arg(openings),
                      residentMegabytes() - afterWarmUp, mostGrowth, QStringLiteral("MB"));
}

} // namespace

int main(int argc, char *argv[])
{
    runWithoutDisplay();
    const QApplication application(argc, argv);
    QTimer::singleShot(0, &application, [] {
        run();
        QCoreApplication::quit();
    });
    return QApplication::exec();
}
