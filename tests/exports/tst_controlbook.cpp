#include "exports/controlbook.h"
#include "recordingbook.h"

#include <QtTest>

class TestControlBook : public QObject {
    Q_OBJECT

private slots:
    void looks();
};

void TestControlBook::looks()
{
    RecordingBook book;
    book.setDefaultFont(QStringLiteral("MS Shell Dlg 2"), 10);
    const ControlBook formats(book);
    QCOMPARE(book.numFormats, QStringList{"#.00"});
    const auto look = [](const Spreadsheet::Format *format) {
        return static_cast<const RecordedFormat *>(format)->text();
    };
    QCOMPARE(look(formats.number(1)), QStringLiteral("MS Shell Dlg 2 10 auto; centre middle; 1 #c0c0c0"));
    QCOMPARE(look(formats.number(10)), QStringLiteral("MS Shell Dlg 2 7 auto; centre middle; 1 #c0c0c0"));
    QCOMPARE(look(formats.sum(1, 1)),
             QStringLiteral("MS Shell Dlg 2 10 bold auto; centre middle; fill #fafafa; 1 #c0c0c0"));
    QCOMPARE(look(formats.sum(100, 1)),
             QStringLiteral("MS Shell Dlg 2 4 bold auto; centre middle; fill #fafafa; 1 #c0c0c0"));
}

QTEST_APPLESS_MAIN(TestControlBook)
#include "tst_controlbook.moc"
