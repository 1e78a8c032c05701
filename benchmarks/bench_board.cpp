// How long an operator waits for the board and its dialogs on a large firm, from the click to the last painted pixel,
// against what the statement of the grid costs alone. Run with --socket and --database of benchmarks/largefirm.sh.
#include "board/dialogmenu.h"
#include "board/menuwidget.h"
#include "board/orderdialog.h"
#include "support/figures.h"
#include "support/floor.h"
#include "support/largefirm.h"
#include "support/paintwatch.h"
#include "support/statementlog.h"

#include <QApplication>
#include <QComboBox>
#include <QTimer>
#include <QToolButton>

#include <memory>

namespace {

constexpr Target openingTarget{4, 150};
constexpr Target changeTarget{1.5, 30};
constexpr unsigned adminID = 1;

class BoardBenchmark {
public:
    void run();

private:
    using Filter = QMap<QString, QVariant>;

    std::unique_ptr<MenuWidget> openBoard(const Filter &filter);
    void measureOpening(const QString &what, const Filter &filter);
    void measureChanges(const QString &branch);
    void measureSteps(const QString &what, const std::function<void(int)> &step);
    template<typename Prepare>
    void measure(const QString &what, const QByteArray &statement, Target target, Prepare prepare);
    void measureOrderDialog(const QString &what, unsigned branch);
    void measureMenuDialog(const QString &what, unsigned branch);
    void measureDialog(const QString &what, const std::function<std::unique_ptr<QDialog>()> &make);
    Filter filter(bool menu, const QString &branch) const;

    LargeFirm m_firm;
    Floor m_floor{m_firm.socket(), m_firm.database()};
    StatementLog m_log{m_firm.db(), m_firm.admin()};
    PaintWatch m_watch;
};

/// Runs floor and step by turns, so that whatever else the machine does falls on both. `prepare` is not timed and gives
/// the step. The first turn does not count.
template<typename Prepare>
void BoardBenchmark::measure(const QString &what, const QByteArray &statement, Target target, Prepare prepare)
{
    QVector<double> floor;
    StepTimes times;
    m_floor.once(statement);
    prepare()();
    for (int run = 0; run < m_firm.runs(); ++run) {
        floor.append(m_floor.once(statement));
        times.measure(prepare());
    }
    printAgainstTarget(what, m_floor.rows(), floor, times, target);
}

BoardBenchmark::Filter BoardBenchmark::filter(bool menu, const QString &branch) const
{
    return {{QStringLiteral("menu"), menu}, {QStringLiteral("branch"), branch}};
}

/// The board as the shell makes it: constructed, loaded, events processed once, filter restored; then shown.
std::unique_ptr<MenuWidget> BoardBenchmark::openBoard(const Filter &filter)
{
    auto board = std::make_unique<MenuWidget>(m_firm.db(), adminID, nullptr);
    board->initData();
    QCoreApplication::processEvents();
    board->filterSetter(filter);
    m_watch.show(board.get());
    return board;
}

void BoardBenchmark::measureOpening(const QString &what, const Filter &filter)
{
    if (!m_firm.isWanted(what))
        return;
    const QByteArray statement = m_log.longestDuring([&] { openBoard(filter); });
    std::unique_ptr<MenuWidget> board;
    measure(what, statement, openingTarget, [&] {
        board.reset();
        m_watch.settle();
        return [&] { board = openBoard(filter); };
    });
}

/// Times a step that is repeated with 0, 1, 2 ..., and measures the floor of the statement of step 0.
void BoardBenchmark::measureSteps(const QString &what, const std::function<void(int)> &step)
{
    if (!m_firm.isWanted(what))
        return;
    const QByteArray statement = m_log.longestDuring([&] { step(0); });
    int number = 1;
    measure(what, statement, changeTarget, [&] {
        return [&] {
            step(number++);
            m_watch.settle();
        };
    });
}

void BoardBenchmark::measureChanges(const QString &branch)
{
    const QString of = branch.isEmpty() ? QStringLiteral(", all branches") : QStringLiteral(", one branch");
    const std::unique_ptr<MenuWidget> board = openBoard(filter(true, branch));
    auto *older = child<QToolButton>(board.get(), "toolButtonL");
    auto *newer = child<QToolButton>(board.get(), "toolButtonR");
    newer->click();
    measureSteps(QStringLiteral("change of week") + of, [&](int number) { (number % 2 ? newer : older)->click(); });

    child<QToolButton>(board.get(), "butOrdersSwitch")->click();
    auto *people = child<QComboBox>(board.get(), "comboBoxPeople");
    measureSteps(QStringLiteral("change of person") + of,
                 [&](int number) { people->setCurrentIndex(1 + number % (people->count() - 1)); });
}

void BoardBenchmark::measureDialog(const QString &what, const std::function<std::unique_ptr<QDialog>()> &make)
{
    if (!m_firm.isWanted(what))
        return;
    const QByteArray statement = m_log.longestDuring([&] { make(); });
    std::unique_ptr<QDialog> dialog;
    measure(what, statement, changeTarget, [&] {
        dialog.reset();
        m_watch.settle();
        return [&] {
            dialog = make();
            m_watch.show(dialog.get());
        };
    });
}

void BoardBenchmark::measureOrderDialog(const QString &what, unsigned branch)
{
    measureDialog(what, [=] {
        return std::make_unique<OrderDialog>(m_firm.db(), m_firm.segment(), QStringLiteral("Obed"), m_firm.lockedDay(),
                                             unsigned(m_firm.person()), adminID, branch, nullptr);
    });
}

void BoardBenchmark::measureMenuDialog(const QString &what, unsigned branch)
{
    measureDialog(what, [=] {
        return std::make_unique<DialogMenu>(m_firm.openDay(), m_firm.segment(), branch, QStringLiteral("Obed"),
                                            m_firm.db(), true, nullptr);
    });
}

void BoardBenchmark::run()
{
    measureOpening(QStringLiteral("opening the board, menu view, one branch"), filter(true, m_firm.branchName()));
    measureOpening(QStringLiteral("opening the board, menu view, all branches"), filter(true, QString()));
    measureOpening(QStringLiteral("opening the board, orders view (first run)"), Filter());
    measureChanges(m_firm.branchName());
    measureChanges(QString());
    measureOrderDialog(QStringLiteral("opening OrderDialog, one branch"), m_firm.branch());
    measureOrderDialog(QStringLiteral("opening OrderDialog, all branches"), 0);
    measureMenuDialog(QStringLiteral("opening DialogMenu, one branch"), m_firm.branch());
    measureMenuDialog(QStringLiteral("opening DialogMenu, all branches"), 0);
}

} // namespace

int main(int argc, char *argv[])
{
    runWithoutDisplay();
    const QApplication application(argc, argv);
    QTimer::singleShot(0, &application, [] {
        BoardBenchmark().run();
        QCoreApplication::quit();
    });
    return QApplication::exec();
}
