// The page of foods and the import of foods over a catalogue of 10,000.
//   opening    making the page, all lists and the preview loaded: at most 2 x the raw fetch of what it shows, without
//   the
//              foods' pictures, which are no price of a list. Painting it for the first time is told apart: it shapes
//              the forty rows in sight and takes the same over a catalogue of a hundred
//   keystroke  from a typed letter to the picture of the narrowed list: at most 50 ms
//   import     10,000 records: at most 12 x the time of 1,000, and at most 2 x the bare statements that it must run
// Database: benchmarks/largefirm.sh DIR NAME --foods 10000 --items 1000 --people 60 --orders 1000. The foods get
// pictures here, and the imported ones are deleted again.
#include "catalogue/foodimport.h"
#include "catalogue/foodwidget.h"
#include "models/foodmodel.h"
#include "models/segmentmodel.h"
#include "models/suppliermodel.h"
#include "models/typemodel.h"
#include "support/figures.h"
#include "support/floor.h"
#include "support/largefirm.h"
#include "support/paintwatch.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int pictureBytes = 20000;
constexpr Target opening{2, 0};
constexpr double keystrokeLimit = 50;
constexpr double growthLimit = 12;
constexpr double importLimit = 2;

const char *const listStatement =
    "SELECT foodID, typeID, name, description, NULL AS picture, price, supplierID FROM via_foods";

class CatalogueBenchmark {
public:
    CatalogueBenchmark();
    void run();

private:
    void measureOpening();
    void measureKeystrokes();
    void measureImport();
    double importTime(int records);
    double bareImportTime(int records);
    void removeImported();
    QString record(int number) const;

    const LargeFirm m_firm;
    Floor m_floor{m_firm.socket(), m_firm.database()};
    PaintWatch m_watch;
    QMainWindow m_window;
    int m_foods = 0;
    uint m_lastFood = 0;
    QString m_supplier;
    QString m_type;
};

CatalogueBenchmark::CatalogueBenchmark()
{
    execute(m_firm.admin(),
            QStringLiteral("UPDATE via_foods SET picture = REPEAT('x', %1) WHERE picture IS NULL").arg(pictureBytes));
    m_lastFood = firstValue(m_firm.db(), QStringLiteral("SELECT MAX(foodID) FROM via_foods")).toUInt();
    m_foods = firstValue(m_firm.db(), QStringLiteral("SELECT COUNT(*) FROM via_foods")).toInt();
    m_supplier = firstValue(m_firm.db(), QStringLiteral("SELECT name FROM via_suppliers LIMIT 1")).toString();
    m_type = firstValue(m_firm.db(), QStringLiteral("SELECT name FROM via_types LIMIT 1")).toString();
    m_window.resize(1650, 984);
}

void CatalogueBenchmark::run()
{
    m_watch.show(&m_window);
    if (m_firm.isWanted(QStringLiteral("opening")))
        measureOpening();
    if (m_firm.isWanted(QStringLiteral("keystroke")))
        measureKeystrokes();
    if (m_firm.isWanted(QStringLiteral("import")))
        measureImport();
}

void CatalogueBenchmark::measureOpening()
{
    QVector<double> floor;
    QVector<double> painting;
    StepTimes times;
    for (int run = 0; run <= m_firm.runs(); ++run) {
        const double bare = m_floor.once(listStatement);
        m_window.setCentralWidget(nullptr);
        m_watch.settle();
        StepTimes time;
        FoodWidget *page = nullptr;
        time.measure([this, &page] { page = new FoodWidget(m_firm.db()); });
        StepTimes paint;
        paint.measure([this, page] {
            m_window.setCentralWidget(page);
            m_watch.show(page);
        });
        if (run == 0)
            continue; // the first one loads fonts and styles
        floor.append(bare);
        painting += paint.elapsed;
        times.elapsed += time.elapsed;
        times.worked += time.worked;
    }
    printAgainstTarget(QStringLiteral("opening the page"), m_foods, floor, times, opening);
    printLine(QStringLiteral("painting it for the first time: %1 ms").arg(median(painting), 0, 'f', 1));
}

void CatalogueBenchmark::measureKeystrokes()
{
    auto *page = new FoodWidget(m_firm.db());
    m_window.setCentralWidget(page);
    m_watch.show(page);
    auto *filter = child<QLineEdit>(page, "searchFilter");
    const QStringList typed{QStringLiteral("k"),    QStringLiteral("ku"),     QStringLiteral("kur"),
                            QStringLiteral("kur "), QStringLiteral("kur p"),  QStringLiteral("kur po"),
                            QStringLiteral("kur"),  QStringLiteral("xyzxyz"), QString()};
    double longest = 0;
    for (int run = 0; run < m_firm.runs(); ++run) {
        for (const QString &text : typed) {
            StepTimes time;
            time.measure([&] {
                filter->setText(text);
                m_watch.settle();
            });
            if (run > 0)
                longest = qMax(longest, time.worked.constFirst());
        }
    }
    printAgainstLimit(QStringLiteral("longest keystroke over %1 foods").arg(m_foods), longest, keystrokeLimit,
                      QStringLiteral("ms"));
}

/// Three records in four are new foods, the fourth overwrites the one before it.
QString CatalogueBenchmark::record(int number) const
{
    const int name = number % 4 == 3 ? number - 1 : number;
    return QStringLiteral("0,%1,%2,Dovezené jedlo %3,\"so zemiakmi, dusené\",\"4,50\",\" \"\n")
        .arg(m_supplier, m_type)
        .arg(name);
}

double CatalogueBenchmark::importTime(int records)
{
    QString text = QStringLiteral("header\n");
    for (int number = 0; number < records; ++number)
        text += record(number);
    SupplierModel suppliers(m_firm.db());
    suppliers.loadAllSuppliers();
    const TypeModel types(m_firm.db());
    FoodModel foods(m_firm.db());
    foods.refresh();
    SegmentModel segments(m_firm.db());
    QTextStream in(&text);
    FoodImport foodImport(m_firm.db(), suppliers, types, &foods, &segments);
    QElapsedTimer timer;
    timer.start();
    foodImport.run(in);
    const double time = double(timer.nsecsElapsed()) / 1e6;
    removeImported();
    return time;
}

double CatalogueBenchmark::bareImportTime(int records)
{
    QVector<QByteArray> statements;
    for (int number = 0; number < records; ++number) {
        if (number % 4 == 3) {
            const QByteArray key = QByteArray::number(m_lastFood + uint(number));
            statements.append("UPDATE via_foods SET typeID=1, supplierID=1, name='Dovezené jedlo', "
                              "description='so zemiakmi, dusené', price=4.5 WHERE foodID="
                              + key);
            statements.append("DELETE FROM via_foodalergen WHERE foodID=" + key);
        } else {
            statements.append("INSERT INTO via_foods (typeID, supplierID, name, description, price) VALUES (1, 1, "
                              "'Dovezené jedlo "
                              + QByteArray::number(number) + "', 'so zemiakmi, dusené', 4.5)");
            statements.append("SELECT MAX(foodID) AS foodID FROM via_foods");
        }
    }
    const double time = m_floor.all(statements);
    removeImported();
    return time;
}

void CatalogueBenchmark::removeImported()
{
    execute(m_firm.admin(), QStringLiteral("DELETE FROM via_foods WHERE foodID > %1").arg(m_lastFood));
    execute(m_firm.admin(), QStringLiteral("ALTER TABLE via_foods AUTO_INCREMENT = 1"));
}

void CatalogueBenchmark::measureImport()
{
    QVector<double> thousand;
    QVector<double> tenThousand;
    QVector<double> bare;
    constexpr int runs = 3;
    for (int run = 0; run < runs; ++run) {
        thousand.append(importTime(1000));
        tenThousand.append(importTime(10000));
        bare.append(bareImportTime(10000));
    }
    const double time = median(tenThousand);
    printLine(QStringLiteral("import of 10,000 records: %1 ms, of 1,000 records: %2 ms, bare statements: %3 ms")
                  .arg(time, 0, 'f', 0)
                  .arg(median(thousand), 0, 'f', 0)
                  .arg(median(bare), 0, 'f', 0));
    printAgainstLimit(QStringLiteral("import, growth from 1,000 to 10,000 records"), time / median(thousand),
                      growthLimit, QStringLiteral("times"));
    printAgainstLimit(QStringLiteral("import, against its bare statements"), time / median(bare), importLimit,
                      QStringLiteral("times"));
}

} // namespace

int main(int argc, char **argv)
{
    runWithoutDisplay();
    const QApplication application(argc, argv);
    CatalogueBenchmark().run();
    return 0;
}
