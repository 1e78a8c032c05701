#include "report/previewreport.h"
#include "report/rptfieldobject.h"
#include "reporttemplate.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QFile>
#include <QPrintPreviewDialog>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

#include <memory>

namespace {

/// A page that prints.
class Caller : public QWidget {
public:
    void setValue(const int recNo, const QString paramName, QVariant &paramValue, const int /*reportPage*/)
    {
        paramValue = QStringLiteral("%1 %2").arg(paramName).arg(recNo);
        asked.insert(paramValue.toString());
    }
    void setDSInfo(DataSetInfo &dsInfo) { dsInfo.recordCount = 2; }
    void setField(RptFieldObject &field) { fields.insert(field.name); }

    QSet<QString> asked;
    QSet<QString> fields;
};

} // namespace

/// One print from a page: whom the engine asks, and what is left afterwards.
class TestPreviewReport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { BOXES_DONE(m_boxes); }

    void asksTheCaller();
    void fieldsAreOfferedOnDemand();
    void missingTemplateOpensNothing();
    void damagedTemplateIsTold();
    void callerGoesMeanwhile();

private:
    QString file(const char *name, const QByteArray &content) const;

    const QTemporaryDir m_folder;
    QString m_template;
    BoxAnswerer m_boxes;
};

QString TestPreviewReport::file(const char *name, const QByteArray &content) const
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("no file");
    return file.fileName();
}

void TestPreviewReport::initTestCase()
{
    const QString content =
        "<Reports>" + page(band("MasterData", 20, label("[a]", 0, 0, 100, 20, "name=\"cell\""))) + "</Reports>";
    m_template = file("rows.xml", content.toUtf8());
}

void TestPreviewReport::asksTheCaller()
{
    Caller caller;
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog *preview) {
        QCOMPARE(preview->parent(), &caller);
        QCOMPARE(caller.findChildren<RptEngine *>().size(), 1);
        preview->reject();
    });
    QVERIFY(previewReport(&caller, m_template, &Caller::setValue, &Caller::setDSInfo));
    QCOMPARE(caller.asked, (QSet<QString>{"a 0", "a 1"}));
    QVERIFY(caller.fields.isEmpty());
    QVERIFY(caller.children().isEmpty());
}

void TestPreviewReport::fieldsAreOfferedOnDemand()
{
    Caller caller;
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [](QDialog *preview) { preview->reject(); });
    QVERIFY(previewReport(&caller, m_template, &Caller::setValue, &Caller::setDSInfo, &Caller::setField));
    QCOMPARE(caller.fields, QSet<QString>{"cell"});
}

void TestPreviewReport::missingTemplateOpensNothing()
{
    Caller caller;
    LogCatcher log;
    QVERIFY(previewReport(&caller, m_folder.filePath("none.xml"), &Caller::setValue, &Caller::setDSInfo));
    QCOMPARE(log.lines(), QStringList());
    QVERIFY(caller.children().isEmpty());
}

void TestPreviewReport::damagedTemplateIsTold()
{
    Caller caller;
    LogCatcher log;
    const int before = m_boxes.answered();
    QVERIFY(previewReport(&caller, file("damaged.xml", "<Reports>"), &Caller::setValue, &Caller::setDSInfo));
    QCOMPARE(log.lines(QtWarningMsg), QStringList{"Report file not found"});
    QCOMPARE(m_boxes.answered(), before);
}

void TestPreviewReport::callerGoesMeanwhile()
{
    auto caller = std::make_unique<Caller>();
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog * /*preview*/) { caller.reset(); });
    QVERIFY(!previewReport(caller.get(), m_template, &Caller::setValue, &Caller::setDSInfo));
    QVERIFY(!caller);
}

QTEST_MAIN(TestPreviewReport)
#include "tst_previewreport.moc"
