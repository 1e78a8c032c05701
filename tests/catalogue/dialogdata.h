#pragma once

#include "support/testdatabase.h"

#include <QApplication>
#include <QDialog>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

/// A small catalogue with fixed keys, put into a test database as a second client.
///
/// Types by position: 91 "Polievky", 92 "Hlavné jedlá", 93 "Dezerty". Suppliers 1 "Jedáleň", 2 "Závodná kuchyňa".
/// Allergens 1 "Obilniny", 3 "Vajcia", 7 "Mlieko", which came in another order. Food 11 "Prívarok", "so smotanou", 3.5,
/// a main dish of supplier 2 with allergens 3 and 7; food 12 "Voda", a soup without supplier, description and
/// allergens.
class DialogData {
public:
    explicit DialogData(const TestDatabase &database)
        : m_database(database)
    {
        // The keys go on where they were, which costs far less than emptying the tables for good.
        for (const char *table : {"via_orderables", "via_foodalergen", "via_foods", "via_suppliers", "via_types",
                                  "via_alergens", "via_segments"})
            m_database.exec(QStringLiteral("DELETE FROM ") + QLatin1String(table));
        // Characters of four bytes pass only over a connection that asks for them, which is the host's to do.
        m_database.exec(QStringLiteral("SET NAMES utf8mb4"));
        QSqlQuery(m_database.db()).exec(QStringLiteral("SET NAMES utf8mb4"));
        exec("INSERT INTO via_types (typeID, name, position, informative) VALUES (92, 'Hlavné jedlá', 2, 0), (93, "
             "'Dezerty', 3, 0), (91, 'Polievky', 1, 1)");
        exec("INSERT INTO via_suppliers (supplierID, name) VALUES (1, 'Jedáleň'), (2, 'Závodná kuchyňa')");
        exec("INSERT INTO via_alergens (alergenID, title, description) VALUES (7, 'Mlieko', 'aj srvátka')");
        exec("INSERT INTO via_alergens (alergenID, title, description) VALUES (1, 'Obilniny', 'lepok'), (3, 'Vajcia', "
             "NULL)");
        exec("INSERT INTO via_foods (foodID, typeID, supplierID, name, description, price) VALUES (11, 92, 2, "
             "'Prívarok', 'so smotanou', 3.5), (12, 91, NULL, 'Voda', NULL, 0)");
        exec("INSERT INTO via_foodalergen (foodID, alergenID) VALUES (11, 7), (11, 3)");
    }

    void exec(const char *statement) const { m_database.exec(QString::fromUtf8(statement)); }
    /// Runs a statement with one value, whatever its text, as the module's client.
    void store(const char *statement, const QVariant &value) const
    {
        QSqlQuery query(m_database.db());
        query.prepare(QString::fromUtf8(statement));
        query.addBindValue(value);
        QVERIFY(query.exec());
    }
    /// "type|supplier|name|description|price" of a food.
    QString food(uint foodID) const
    {
        return m_database
            .rows(QStringLiteral("SELECT typeID, supplierID, name, description, price FROM via_foods WHERE foodID=%1")
                      .arg(foodID))
            .value(0);
    }
    uint lastFood() const { return m_database.value(QStringLiteral("SELECT MAX(foodID) FROM via_foods")).toUInt(); }
    QByteArray picture(uint foodID) const
    {
        return m_database.value(QStringLiteral("SELECT picture FROM via_foods WHERE foodID=%1").arg(foodID))
            .toByteArray();
    }
    /// The keys of a food's allergens.
    QString alergens(uint foodID) const
    {
        return m_database
            .rows(
                QStringLiteral("SELECT alergenID FROM via_foodalergen WHERE foodID=%1 ORDER BY alergenID").arg(foodID))
            .join(QLatin1Char(' '));
    }
    /// "position name" of all types, in order.
    QStringList types() const
    {
        return m_database.rows(
            QStringLiteral("SELECT CONCAT_WS(' ', position, name) FROM via_types ORDER BY position"));
    }
    /// "title|description" of all allergens, by key.
    QStringList allAlergens() const
    {
        return m_database.rows(QStringLiteral("SELECT title, description FROM via_alergens ORDER BY alergenID"));
    }
    /// The module's connection before it was opened.
    QSqlDatabase closedConnection() const
    {
        return QSqlDatabase::cloneDatabase(m_database.db(), QStringLiteral("closed"));
    }

private:
    const TestDatabase &m_database;
};

/// A dialog with a short way to its widgets.
template<typename Dialog> class Opened : public Dialog {
public:
    using Dialog::Dialog;

    template<typename Widget> Widget *find(const char *name) const
    {
        return Dialog::template findChild<Widget *>(QLatin1String(name));
    }
};

/// Texts that a careless program shows or stores as something else.
inline QStringList hostileTexts()
{
    return {QStringLiteral("O'Brien \"guláš\" \\ \\n"),     QStringLiteral("100% %1 %2 %3 %s"),
            QStringLiteral("<b>tučné</b> & <img src=x>"),   QStringLiteral("\U0001F372 polievka"),
            QStringLiteral("\u05de\u05e8\u05e7 \u202e123"), QString(10000, QLatin1Char('x'))};
}

/// Shows a window and gives it the keyboard.
inline void show(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

/// The names of the widgets that Tab leads through, from the first to the one before the first again.
inline QStringList tabOrder(const QWidget &window)
{
    QStringList names;
    QWidget *focus = window.focusWidget();
    while (focus && !names.contains(focus->objectName())) {
        names.append(focus->objectName());
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = window.focusWidget();
    }
    return names;
}

/// Whether all of a label's or button's text has its room, also in a font half as large again.
inline bool textsFit(QWidget &window)
{
    bool fit = true;
    const QFont font = window.font();
    QFont large = font;
    large.setPointSizeF(font.pointSizeF() * 1.5);
    const QList<QFont> fonts{font, large};
    for (const QFont &used : fonts) {
        window.setFont(used);
        window.resize(window.minimumSizeHint());
        QCoreApplication::processEvents();
        const QList<QWidget *> widgets = window.findChildren<QWidget *>(
            QRegularExpression(QStringLiteral("^(label(?!Pixmap)|pushButton|checkBox)")));
        for (const QWidget *widget : widgets)
            fit = fit && (widget->isHidden() || widget->width() >= widget->sizeHint().width());
    }
    window.setFont(font);
    return fit;
}
