#include "pagescript.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QString stepText(const ScriptStep &step)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(static_cast<int>(step.verb))
        .arg(step.widget)
        .arg(step.number)
        .arg(step.value);
}

/// A page with one of each kind of widget, two of them by the name "but".
class Page : public QWidget {
public:
    Page()
    {
        auto *layout = new QVBoxLayout(this);
        for (QPushButton *button : {&hidden, &first, &second, &disabled}) {
            layout->addWidget(button);
            button->setObjectName(QStringLiteral("but"));
            connect(button, &QPushButton::clicked, this, [this, button] { clicked.append(button->text()); });
        }
        hidden.hide();
        disabled.setEnabled(false);
        const QList<QPair<QWidget *, QString>> named{{&combo, QStringLiteral("combo")},
                                                     {&list, QStringLiteral("list")},
                                                     {&table, QStringLiteral("table")},
                                                     {&line, QStringLiteral("line")},
                                                     {&text, QStringLiteral("text")}};
        for (const auto &pair : named) {
            pair.first->setObjectName(pair.second);
            layout->addWidget(pair.first);
        }
        combo.addItems({QStringLiteral("Sever"), QStringLiteral("Juh"), QStringLiteral("Západ")});
        list.addItems({QStringLiteral("polievka"), QStringLiteral("jedlo")});
        connect(&table, &QTableWidget::cellClicked, this,
                [this](int row, int column) { clicked.append(QStringLiteral("cell %1,%2").arg(row).arg(column)); });
        connect(&table, &QTableWidget::cellDoubleClicked, this,
                [this](int row, int column) { clicked.append(QStringLiteral("double %1,%2").arg(row).arg(column)); });
        resize(500, 800);
        show();
    }

    QStringList clicked;
    QPushButton hidden{QStringLiteral("hidden")};
    QPushButton first{QStringLiteral("first")};
    QPushButton second{QStringLiteral("second")};
    QPushButton disabled{QStringLiteral("disabled")};
    QComboBox combo;
    QListWidget list;
    QTableWidget table{3, 2};
    QLineEdit line;
    QPlainTextEdit text;
};

/// Runs a script to its end; gives the problem, or none.
QString run(const QString &script, QWidget &window)
{
    const PageScript parsed = parsePageScript(script);
    if (!parsed.error.isEmpty())
        return parsed.error;
    PageScriptRunner runner(parsed.steps, &window);
    QSignalSpy finished(&runner, &PageScriptRunner::finished);
    QSignalSpy failed(&runner, &PageScriptRunner::failed);
    runner.start();
    if (!QTest::qWaitFor([&] { return finished.count() + failed.count() > 0; }))
        return QStringLiteral("no end");
    QTest::qWait(100); // A step after a failure would show itself now.
    if (finished.count() + failed.count() != 1)
        return QStringLiteral("%1 ends").arg(finished.count() + failed.count());
    return failed.isEmpty() ? QString() : failed.constFirst().constFirst().toString();
}

} // namespace

class TestPageScript : public QObject {
    Q_OBJECT

private slots:
    void stepsAreRead_data();
    void stepsAreRead();
    void nonsenseIsRefused_data();
    void nonsenseIsRefused();
    void stepsWork_data();
    void stepsWork();
    void stepsThatCannotBeDone_data();
    void stepsThatCannotBeDone();
    void aModalDialogDoesNotHoldUpTheScript();
    void aWindowThatGoesEndsTheScript();
};

void TestPageScript::stepsAreRead_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("steps");
    QTest::newRow("none") << "" << QStringList();
    QTest::newRow("click") << "click:butMenuSwitch" << QStringList{"0 butMenuSwitch 1 "};
    QTest::newRow("number") << "click:but_1#12" << QStringList{"0 but_1 12 "};
    QTest::newRow("several, blanks and a stray end")
        << " click:a ; select:b=3; type:c#2=Žltý = kôň ;" << QStringList{"0 a 1 ", "2 b 1 3", "3 c 2 Žltý = kôň"};
    QTest::newRow("cell") << "doubleclick:table=1,0" << QStringList{"1 table 1 1,0"};
    QTest::newRow("empty text") << "type:line=" << QStringList{"3 line 1 "};
}

void TestPageScript::stepsAreRead()
{
    QFETCH(QString, script);
    const PageScript parsed = parsePageScript(script);
    QCOMPARE(parsed.error, QString());
    QStringList texts;
    for (const ScriptStep &step : parsed.steps)
        texts.append(stepText(step));
    QTEST(texts, "steps");
}

void TestPageScript::nonsenseIsRefused_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("error");
    for (const char *step : {"click", "click:", ":a", "click:a b", "click:a#0", "click:a#x", "click a"})
        QTest::newRow(step) << step
                            << QStringLiteral("'%1' is no step such as click:NAME or select:NAME=ENTRY.").arg(step);
    QTest::newRow("verb") << "click:a;press:b"
                          << "'press' is no verb; there are click, doubleclick, select and type.";
    QTest::newRow("no entry") << "select:a"
                              << "'select' needs a value: select:NAME=VALUE.";
    QTest::newRow("no text") << "type:a"
                             << "'type' needs a value: type:NAME=VALUE.";
}

void TestPageScript::nonsenseIsRefused()
{
    QFETCH(QString, script);
    const PageScript parsed = parsePageScript(script);
    QTEST(parsed.error, "error");
    QVERIFY(parsed.steps.isEmpty());
}

void TestPageScript::stepsWork_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("clicked");
    QTest::addColumn<QString>("state");
    QTest::newRow("none") << "" << QStringList() << "Sever||";
    QTest::newRow("hidden ones do not count") << "click:but;click:but#2" << QStringList{"first", "second"} << "Sever||";
    QTest::newRow("entry by number") << "select:combo=2" << QStringList() << "Západ||";
    QTest::newRow("entry by text") << "select:combo=Juh" << QStringList() << "Juh||";
    QTest::newRow("cell") << "click:table=2,1" << QStringList{"cell 2,1"} << "Sever||";
    QTest::newRow("row alone") << "click:table=1" << QStringList{"cell 1,0"} << "Sever||";
    QTest::newRow("cell twice") << "doubleclick:table=0,1" << QStringList{"cell 0,1", "double 0,1"} << "Sever||";
    QTest::newRow("texts") << "type:line=kôň;type:text=ab;type:text=c" << QStringList() << "Sever|kôň|abc";
    QTest::newRow("over the line's text") << "type:line=prvý;type:line=druhý" << QStringList() << "Sever|druhý|";
}

void TestPageScript::stepsWork()
{
    QFETCH(QString, script);
    Page page;
    QCOMPARE(run(script, page), QString());
    QTEST(page.clicked, "clicked");
    QTEST((QStringList{page.combo.currentText(), page.line.text(), page.text.toPlainText()}.join(QLatin1Char('|'))),
          "state");
}

void TestPageScript::stepsThatCannotBeDone_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no widget") << "click:nobody"
                               << "nobody#1: there is no such visible widget";
    QTest::newRow("not that many") << "click:but#4"
                                   << "but#4: there is no such visible widget";
    QTest::newRow("disabled") << "click:but#3"
                              << "but#3: it is disabled";
    QTest::newRow("no cell") << "click:table=3,0"
                             << "table#1: there is no cell '3,0'";
    QTest::newRow("no cell's text") << "click:table=x"
                                    << "table#1: there is no cell 'x'";
    QTest::newRow("no entry") << "select:combo=Východ"
                              << "combo#1: there is no entry 'Východ'";
    QTest::newRow("no entry's number") << "select:combo=3"
                                       << "combo#1: there is no entry '3'";
    QTest::newRow("nothing to select") << "select:line=1"
                                       << "line#1: it has no entries";
    QTest::newRow("later steps are left out") << "click:nobody;click:but"
                                              << "nobody#1: there is no such visible widget";
    QTest::newRow("also after one that was found") << "click:but#3;click:but"
                                                   << "but#3: it is disabled";
}

void TestPageScript::stepsThatCannotBeDone()
{
    QFETCH(QString, script);
    Page page;
    QTEST(run(script, page), "problem");
    QCOMPARE(page.clicked, QStringList());
}

void TestPageScript::aModalDialogDoesNotHoldUpTheScript()
{
    Page page;
    QString typed;
    connect(&page.first, &QPushButton::clicked, &page, [&] {
        QDialog dialog(&page);
        QLineEdit line(&dialog);
        line.setObjectName(QStringLiteral("line"));
        QPushButton button(&dialog);
        button.setObjectName(QStringLiteral("butClose"));
        connect(&button, &QPushButton::clicked, &dialog, &QDialog::accept);
        dialog.exec();
        typed = line.text();
    });
    QCOMPARE(run(QStringLiteral("click:but;type:line=in the dialog;click:butClose;type:line=on the page"), page),
             QString());
    QCOMPARE(typed, QStringLiteral("in the dialog"));
    QCOMPARE(page.line.text(), QStringLiteral("on the page"));
}

void TestPageScript::aWindowThatGoesEndsTheScript()
{
    auto page = std::make_unique<Page>();
    PageScriptRunner runner(parsePageScript(QStringLiteral("click:but")).steps, page.get());
    QSignalSpy failed(&runner, &PageScriptRunner::failed);
    QVERIFY(failed.isValid());
    runner.start();
    page.reset();
    QVERIFY(failed.wait());
}

QTEST_MAIN(TestPageScript)
#include "tst_pagescript.moc"
