#include "report/rptenums.h"

#include <QMetaEnum>
#include <QtTest>

/// The numbers are the format's: templates and callers know them.
class TestRptEnums : public QObject {
    Q_OBJECT

private slots:
    void bandTypes();
    void fieldTypes();
    void printModes();
};

namespace {

QString listed(const QMetaEnum &names)
{
    QStringList list;
    for (int index = 0; index < names.keyCount(); ++index)
        list.append(QStringLiteral("%1 %2").arg(names.value(index)).arg(QLatin1String(names.key(index))));
    return list.join(", ");
}

} // namespace

void TestRptEnums::bandTypes()
{
    QCOMPARE(listed(QMetaEnum::fromType<Rpt::BandType>()),
             QStringLiteral("1 PageHeader, 2 ReportTitle, 3 DataGroupHeader, 4 MasterHeader, 5 MasterData, "
                            "6 MasterFooter, 7 DataGroupFooter, 8 ReportSummary, 9 PageFooter"));
}

void TestRptEnums::fieldTypes()
{
    QCOMPARE(listed(QMetaEnum::fromType<Rpt::FieldType>()),
             QStringLiteral("0 label, 1 labelImage, 2 textRich, 3 image, 4 diagram, 5 reactangle, "
                            "6 roundedReactangle, 7 circle, 8 triangle, 9 rhombus, 10 line, 11 barcode, "
                            "12 DatabaseImage, 13 crossTab"));
}

void TestRptEnums::printModes()
{
    QCOMPARE(static_cast<int>(Rpt::PrinterMode), 0);
    QCOMPARE(static_cast<int>(Rpt::PdfMode), 1);
    QCOMPARE(static_cast<int>(Rpt::HtmlMode), 2);
    QCOMPARE(static_cast<int>(Rpt::SpreadsheetMode), 3);
}

QTEST_APPLESS_MAIN(TestRptEnums)
#include "tst_rptenums.moc"
