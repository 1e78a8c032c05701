#include "settings/segmenteditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QPointer>
#include <QTimer>

#include <memory>

namespace {

constexpr int longestList = 6;

/// The log of the steps back, from position `last` down to `first`.
QStringList stepsBack(int last, int first)
{
    QStringList lines;
    for (int position = last; position >= first; --position)
        lines.append(QStringLiteral("posuvam segment s poziciou %1").arg(position));
    return lines;
}

QString error()
{
    return QStringLiteral("Chyba databázy");
}

QString moveError()
{
    return QStringLiteral("Nepodarilo sa posunúť typ výdaja!");
}

} // namespace

/// The editor of a slot keeps the positions from 1 to n in the real database.
class TestSegmentPositions : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SettingsData>(*m_database); }

    void inserts_data();
    void inserts();
    void moves_data();
    void moves();
    void moveWritesTheRest();
    void deletes_data();
    void deletes();
    void deletionIsDeclined();
    void refusedDeletion();
    void slotThatIsGone();
    void nothingChosenKeepsThePosition();
    void lostConnectionOnSave_data();
    void lostConnectionOnSave();
    void lostConnectionOnAdd();
    void mayDieInTheQuestion();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SettingsData> m_data;
};

void TestSegmentPositions::inserts_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("target");
    for (int count = 0; count <= longestList; ++count) {
        for (int target = 1; target <= count + 1; ++target)
            QTest::newRow(qPrintable(QStringLiteral("%1 into %2").arg(target).arg(count))) << count << target;
    }
}

void TestSegmentPositions::inserts()
{
    QFETCH(int, count);
    QFETCH(int, target);
    m_data->fillSlots(count);
    SegmentEditor editor(m_database->db());
    editor.type(QStringLiteral("new"));
    editor.place()->setCurrentText(QString::number(target));
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(),
             QStringList{QStringLiteral("0 %1").arg(target)} + stepsBack(count, target)
                 + QStringList{"pridavam 0 \"new\""});
    QStringList names = slotNames(count);
    names.insert(target - 1, QStringLiteral("new"));
    QCOMPARE(m_data->order(), inOrder(names));
    QCOMPARE(editor.result(), 1);
}

void TestSegmentPositions::moves_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("target");
    for (int from = 1; from <= longestList; ++from) {
        for (int target = 1; target <= longestList; ++target)
            QTest::newRow(qPrintable(QStringLiteral("%1 to %2").arg(from).arg(target))) << from << target;
    }
}

void TestSegmentPositions::moves()
{
    QFETCH(int, from);
    QFETCH(int, target);
    m_data->fillSlots(longestList);
    SegmentEditor editor(m_database->db(), uint(10 + from));
    editor.place()->setCurrentText(QString::number(target));
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(),
             QStringList{QStringLiteral("%1 %2").arg(from).arg(target)} + stepsBack(from, target)
                 + QStringList{QStringLiteral("updatujem 1%1 \"slot %1\"").arg(from)});
    QStringList names = slotNames(longestList);
    names.move(from - 1, target - 1);
    QCOMPARE(m_data->order(), inOrder(names));
    QCOMPARE(editor.result(), 1);
}

void TestSegmentPositions::moveWritesTheRest()
{
    m_data->fillSlots(3);
    const SegmentEditor editor(m_database->db(), 13);
    editor.type(QStringLiteral("Obed"));
    editor.start()->setTime(QTime(11, 15));
    editor.stop()->setTime(QTime(13, 45));
    editor.place()->setCurrentIndex(0);
    editor.save()->click();
    QCOMPARE(m_data->records(),
             (QStringList{"11|slot 1|01:00|01:30|2", "12|slot 2|02:00|02:30|3", "13|Obed|11:15|13:45|1"}));
}

void TestSegmentPositions::deletes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("position");
    for (int count = 1; count <= longestList; ++count) {
        for (int position = 1; position <= count; ++position)
            QTest::newRow(qPrintable(QStringLiteral("%1 of %2").arg(position).arg(count))) << count << position;
    }
}

void TestSegmentPositions::deletes()
{
    QFETCH(int, count);
    QFETCH(int, position);
    m_data->fillSlots(count);
    SegmentEditor editor(m_database->db(), uint(10 + position));
    editor.type(QStringLiteral("typed, but not saved"));
    QStringList left = slotNames(count);
    const QString name = left.takeAt(position - 1);
    BoxAnswerer boxes;
    LogCatcher log;
    boxes.expectBox(QStringLiteral("Zmazanie Segmentu!"),
                    QStringLiteral("Naozaj chcete zmazať segment ") + name + QLatin1Char('?'), QMessageBox::Ok);
    editor.remove()->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.lines(QtDebugMsg), QStringList{QStringLiteral("deleting segment with ID: 1%1").arg(position)});
    QCOMPARE(m_data->order(), inOrder(left));
    QCOMPARE(editor.result(), 2);
}

void TestSegmentPositions::deletionIsDeclined()
{
    m_data->fillSlots(2);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogAddSegment"), [](QDialog *dialog) {
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonDelete"))->click();
        QVERIFY(dialog->isVisible());
        dialog->reject();
    });
    boxes.expectBox(QStringLiteral("Zmazanie Segmentu!"), QStringLiteral("Naozaj chcete zmazať segment slot 1?"),
                    QMessageBox::Cancel);
    SegmentEditor editor(m_database->db(), 11);
    QCOMPARE(editor.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(m_data->order(), inOrder(slotNames(2)));
}

void TestSegmentPositions::refusedDeletion()
{
    m_data->fillSlots(3);
    m_data->item(11);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogAddSegment"), [](QDialog *dialog) {
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonDelete"))->click();
    });
    boxes.expectBox(QStringLiteral("Zmazanie Segmentu!"), QStringLiteral("Naozaj chcete zmazať segment slot 1?"),
                    QMessageBox::Ok);
    boxes.expectBox(error(),
                    QStringLiteral("Nepodarilo sa zmazať typ výdaja! Skúste najprv zmazať všetky priradené "
                                   "objednávateľné položky ku typu výdaja."));
    SegmentEditor editor(m_database->db(), 11);
    QCOMPARE(editor.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(m_data->order(), inOrder(slotNames(3)));
}

void TestSegmentPositions::slotThatIsGone()
{
    m_data->fillSlots(3);
    const SegmentEditor editor(m_database->db(), 99);
    QCOMPARE(editor.place()->currentIndex(), -1);
    editor.type(QStringLiteral("Obed"));
    editor.place()->setCurrentIndex(1);
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(), (QStringList{"0 2", "updatujem 0 \"Obed\""}));
    QCOMPARE(m_data->order(), inOrder(slotNames(3)));
}

void TestSegmentPositions::nothingChosenKeepsThePosition()
{
    m_data->fillSlots(3);
    const SegmentEditor editor(m_database->db(), 12);
    editor.type(QStringLiteral("Obed"));
    editor.place()->setCurrentIndex(-1); // as when the list could not be loaded
    editor.save()->click();
    QCOMPARE(m_data->order(), (QStringList{"1 slot 1", "2 Obed", "3 slot 3"}));
}

void TestSegmentPositions::lostConnectionOnSave_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<int>("moves");
    QTest::newRow("stays") << 2 << 1;
    QTest::newRow("forward") << 4 << 2;
    QTest::newRow("back") << 1 << 2;
}

void TestSegmentPositions::lostConnectionOnSave()
{
    QFETCH(int, target);
    QFETCH(int, moves);
    const TestDatabase lost(QStringLiteral("lost"));
    const SettingsData data(lost);
    data.fillSlots(4);
    SegmentEditor editor(lost.db(), 12);
    editor.place()->setCurrentText(QString::number(target));
    lost.breakConnection();
    BoxAnswerer boxes;
    for (int move = 0; move < moves; ++move)
        boxes.expectBox(error(), moveError());
    boxes.expectBox(error(), QStringLiteral("Nepodarilo sa upraviť typ výdaja!"));
    editor.save()->click();
    BOXES_DONE(boxes);
    QCOMPARE(data.order(), inOrder(slotNames(4)));
    QCOMPARE(editor.result(), 1);
}

void TestSegmentPositions::lostConnectionOnAdd()
{
    const TestDatabase lost(QStringLiteral("lost"));
    const SettingsData data(lost);
    data.fillSlots(2);
    SegmentEditor editor(lost.db());
    editor.type(QStringLiteral("new"));
    editor.place()->setCurrentIndex(0);
    lost.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(error(), moveError());
    boxes.expectBox(error(), moveError());
    boxes.expectBox(error(), QStringLiteral("Nepodarilo sa pridať typ výdaja!"));
    LogCatcher log;
    editor.save()->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 3);
    QCOMPARE(log.critical().filter(QStringLiteral("SegmentRepository(moving segment position) - SQL ERROR: ")).size(),
             2);
    QCOMPARE(data.order(), inOrder(slotNames(2)));
}

void TestSegmentPositions::mayDieInTheQuestion()
{
    m_data->fillSlots(2);
    const QPointer<SegmentEditor> editor(new SegmentEditor(m_database->db(), 11));
    QTimer::singleShot(0, this, [&editor] { delete editor; });
    editor->on_pushButtonDelete_clicked();
    QVERIFY(!editor);
    QCOMPARE(m_data->order(), inOrder(slotNames(2)));
}

QTEST_MAIN(TestSegmentPositions)
#include "tst_segmentpositions.moc"
