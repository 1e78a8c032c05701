#pragma once

#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/boxanswerer.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

/// What the three exports have of their own.
struct Export {
    const char *file; ///< the name that is proposed
    const char *filter; ///< the first one
    const char *title; ///< of the box after a success
    const char *success;
    const char *failureTitle;
    const char *failure;
    void (*run)(BoardPage &page);
};

inline void runBranch(BoardPage &page)
{
    page.monthlyExportToXLS();
}

inline void runPerson(BoardPage &page)
{
    page.monthlyExportOrderDelivToXLS(1);
}

inline void runControl(BoardPage &page)
{
    page.on_toolButtonExport_clicked();
}

constexpr Export branchExport{
    "mesacny_prehlad_objednavok.xls",
    "XLS (*.xls)",
    "ZEP - Mesačný výpis objednávok zamestnancov",
    "Mesačný výpis objednávok zamestnancov prebehol úspešne. \n%1",
    "ZEP - Mesačný výpis objednávok zamestnancov",
    "Zápis do súboru \"%1\" XLS zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.",
    runBranch};
// A person's failure has the branch's title.
constexpr Export personExport{
    "mesacny_vypis_objednanej_stravy.xls",
    "XLS (*.xls)",
    "ZEP - Mesačný výpis objednanej stravy",
    "Mesačný výpis objednanej stravy prebehol úspešne. \n%1",
    "ZEP - Mesačný výpis objednávok zamestnancov",
    "Zápis do súboru \"%1\" XLS zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.",
    runPerson};
constexpr Export controlExport{
    "Kontrolný export.xlsx",
    "XLSX (*.xlsx)",
    "ZEP - Kontrolný export stravy",
    "Kontrolný export stravy prebehol úspešne. \n%1",
    "ZEP - Kontrolný export stravy",
    "Zápis do súboru \"%1\" zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.",
    runControl};

Q_DECLARE_METATYPE(const Export *)

/// A canteen with a board to export from: slots "Obed" and "Večera", one type, a food of 4.50, the branch "Výroba" and
/// the person "[17] Adamec Ján". Answers the questions and boxes of exports. The locale is Slovak while it lives.
class ExportData {
public:
    ExportData();
    ~ExportData();
    Q_DISABLE_COPY(ExportData)

    QSqlDatabase db() const { return database.db(); }
    void reset();

    static QDate thursday() { return WeekList::thursdayOf(QDate::currentDate()); }
    static QString month() { return QLocale().toString(thursday(), QStringLiteral("MMMM yyyy")); }
    uint order(uint person, const QDate &date, int quantity, uint ofBranch = 0) const
    {
        return data.order(data.item(food, obed, date, 1, ofBranch), person, quantity);
    }

    QString path(const QString &name) const { return m_folder->filePath(name); }
    /// What stands in the folder of `path`.
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }
    /// Types a name into the next question and presses `button`.
    void answerFile(const QString &fileName, QDialogButtonBox::StandardButton button = QDialogButtonBox::Save,
                    const std::function<void(QFileDialog *)> &inspect = {});
    void expectSuccess(const Export &kind, const QString &fileName);
    void expectFailure(const Export &kind, const QString &fileName);
    /// Runs an export that must succeed; gives the file's name.
    QString write(BoardPage &page, const Export &kind)
    {
        return write(kind, [&] { kind.run(page); });
    }
    template<typename Run> QString write(const Export &kind, Run run)
    {
        const QString fileName = path(QString::fromUtf8(kind.file));
        answerFile(fileName);
        expectSuccess(kind, fileName);
        run();
        const QString failures = boxes.takeFailures();
        if (!failures.isEmpty())
            qFatal("%s", qPrintable(failures));
        return fileName;
    }

    TestDatabase database;
    BoardData data{database};
    BoxAnswerer boxes;
    uint obed = 0;
    uint food = 0;
    uint branch = 0;
    uint adamec = 0;

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

inline ExportData::ExportData()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale(QStringLiteral("sk_SK")));
}

inline ExportData::~ExportData()
{
    QLocale::setDefault(QLocale::c());
}

inline void ExportData::reset()
{
    QSqlDatabase connection = db();
    connection.close();
    if (!connection.open())
        qFatal("the test database does not open again");
    data.clear();
    m_folder = std::make_unique<QTemporaryDir>();
    obed = data.segment(QStringLiteral("Obed"), 1);
    data.segment(QStringLiteral("Večera"), 2);
    food = data.food(QStringLiteral("Guláš"), data.type(QStringLiteral("Hlavné jedlá"), 1),
                     data.supplier(QStringLiteral("GA")));
    branch = data.branch(QStringLiteral("Výroba"));
    adamec = data.person(17, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    database.exec(QStringLiteral("UPDATE people SET title = 'Ing.', title2 = '' WHERE pid = 17"));
}

inline void ExportData::answerFile(const QString &fileName, QDialogButtonBox::StandardButton button,
                                   const std::function<void(QFileDialog *)> &inspect)
{
    boxes.expectDialog(QStringLiteral("QFileDialog"), [=](QDialog *dialog) {
        QVERIFY(!QGuiApplication::overrideCursor());
        if (inspect)
            inspect(qobject_cast<QFileDialog *>(dialog));
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(fileName);
        dialog->findChild<QDialogButtonBox *>()->button(button)->click();
    });
}

inline void checkResultBox(const QMessageBox *box, QMessageBox::Icon icon)
{
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(box->parentWidget()->isEnabled());
    QCOMPARE(box->icon(), icon);
    QCOMPARE(box->textFormat(), Qt::PlainText);
    QCOMPARE(box->standardButtons(), QMessageBox::Ok);
}

inline void ExportData::expectSuccess(const Export &kind, const QString &fileName)
{
    boxes.expectBox(QString::fromUtf8(kind.title), QString::fromUtf8(kind.success).arg(fileName), QMessageBox::Ok,
                    [](QMessageBox *box) { checkResultBox(box, QMessageBox::Information); });
}

inline void ExportData::expectFailure(const Export &kind, const QString &fileName)
{
    boxes.expectBox(QString::fromUtf8(kind.failureTitle), QString::fromUtf8(kind.failure).arg(fileName),
                    QMessageBox::Ok, [](QMessageBox *box) { checkResultBox(box, QMessageBox::Critical); });
}
