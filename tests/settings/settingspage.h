#pragma once

#include "settings/settingswidget.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

/// The settings and service slots of a test, put into its database as a second client, and a record of every write to
/// the settings since: one row for each statement, also for one that changes nothing.
class SettingsData {
public:
    explicit SettingsData(const TestDatabase &database)
        : m_database(database)
    {
        m_database.clear();
        m_database.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS written (number INT AUTO_INCREMENT PRIMARY KEY, "
                                       "name TEXT, value TEXT)"));
        m_database.exec(QStringLiteral("CREATE TRIGGER IF NOT EXISTS record BEFORE INSERT ON vars FOR EACH ROW INSERT "
                                       "INTO written (name, value) VALUES (NEW.name, NEW.value)"));
    }

    void set(const char *name, const QString &value) const
    {
        m_database.exec(QStringLiteral("REPLACE INTO vars VALUES ('%1', '%2')").arg(QLatin1String(name), value));
        m_database.exec(QStringLiteral("DELETE FROM written"));
    }
    QString get(const char *name) const
    {
        return m_database.value(QStringLiteral("SELECT value FROM vars WHERE name='%1'").arg(QLatin1String(name)))
            .toString();
    }
    /// "name=value" of each write since the last call, oldest first.
    QStringList takeWrites() const
    {
        const QStringList writes =
            m_database.rows(QStringLiteral("SELECT CONCAT(name, '=', value) FROM written ORDER BY number"));
        m_database.exec(QStringLiteral("DELETE FROM written"));
        return writes;
    }

    /// Slots 1 to `count` with the keys 11, 12, ...: "slot 1" at position 1 from 1:00 to 1:30, and so on.
    void fillSlots(int count) const
    {
        for (int position = 1; position <= count; ++position)
            m_database.exec(QStringLiteral("INSERT INTO via_segments VALUES (1%1, 'slot %1', '0%1:00', '0%1:30', %1)")
                                .arg(position));
    }
    /// A menu item with a limit of portions on the slot with this key.
    void item(int segmentID, int limit = 5) const
    {
        m_database.exec(QStringLiteral("INSERT IGNORE INTO via_types (typeID, name, position) VALUES (1, 'typ', 1)"));
        m_database.exec(
            QStringLiteral("INSERT IGNORE INTO via_foods (foodID, typeID, name, price) VALUES (1, 1, 'jedlo', 2)"));
        m_database.exec(QStringLiteral("INSERT INTO via_orderables (foodID, segmentID, date, position, `limit`) VALUES "
                                       "(1, %1, '2031-05-14', 1, %2)")
                            .arg(segmentID)
                            .arg(limit));
    }
    QStringList limits() const
    {
        return m_database.rows(QStringLiteral("SELECT `limit` FROM via_orderables ORDER BY orderableID"));
    }
    /// "position name" of all slots in their order.
    QStringList order() const
    {
        return m_database.rows(
            QStringLiteral("SELECT CONCAT(position, ' ', name) FROM via_segments ORDER BY position, segmentID"));
    }
    /// "key|name|start|stop|position" of all slots by key.
    QStringList records() const
    {
        return m_database.rows(QStringLiteral("SELECT segmentID, name, TIME_FORMAT(start, '%H:%i'), TIME_FORMAT(stop, "
                                              "'%H:%i'), position FROM via_segments ORDER BY segmentID"));
    }

private:
    const TestDatabase &m_database;
};

/// The names "1 slot 1", "2 slot 2", ... as `SettingsData::order` gives them, for slots in the order of `names`.
inline QStringList inOrder(const QStringList &names)
{
    QStringList lines;
    for (const QString &name : names)
        lines.append(QStringLiteral("%1 %2").arg(lines.size() + 1).arg(name));
    return lines;
}

/// "slot 1" to "slot `count`".
inline QStringList slotNames(int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names.append(QStringLiteral("slot %1").arg(number));
    return names;
}

/// The module's connection before it was opened.
inline QSqlDatabase closedConnection(const TestDatabase &database)
{
    return QSqlDatabase::cloneDatabase(database.db(), QStringLiteral("closed"));
}

/// A page or dialog with the list of slots and its three buttons, and short ways to them.
template<typename Form> class SegmentForm : public Form {
public:
    explicit SegmentForm(const QSqlDatabase &db, QWidget *parent = nullptr)
        : Form(db, parent)
    {
    }

    template<typename Widget> Widget *find(const char *name) const
    {
        return this->template findChild<Widget *>(QLatin1String(name));
    }
    QListView *list() const { return find<QListView>("listViewSegments"); }
    QPushButton *add() const { return find<QPushButton>("pushButtonPridat_2"); }
    QPushButton *remove() const { return find<QPushButton>("pushButtonZmazat_2"); }
    QPushButton *edit() const { return find<QPushButton>("pushButtonUpravit_2"); }
    /// What the list shows.
    QStringList names() const
    {
        QStringList names;
        const QAbstractItemModel *model = list()->model();
        for (int row = 0; model && row < model->rowCount(); ++row)
            names.append(model->index(row, list()->modelColumn()).data().toString());
        return names;
    }
    void select(int row) const { list()->setCurrentIndex(list()->model()->index(row, list()->modelColumn())); }
    /// The enabled buttons by their texts, the default marked with "*".
    QString buttons() const
    {
        QStringList texts;
        for (const QPushButton *button : {add(), remove(), edit()}) {
            if (button->isEnabled() || button->isDefault())
                texts.append((button->isDefault() ? QStringLiteral("*") : QString()) + button->text());
        }
        return texts.join(QLatin1Char(' '));
    }
};

class SettingsPage : public SegmentForm<SettingsWidget> {
public:
    using SegmentForm::SegmentForm;

    /// The box of a day, 1 for Monday.
    QCheckBox *day(int number) const { return findChild<QCheckBox *>(QStringLiteral("checkBox_%1").arg(number)); }
    /// The numbers of the checked days in a row.
    QString days() const
    {
        QString numbers;
        for (int number = 1; number <= 7; ++number) {
            if (day(number)->isChecked())
                numbers += QString::number(number);
        }
        return numbers;
    }
    QSpinBox *weeks() const { return find<QSpinBox>("spinBox"); }
    QComboBox *rule() const { return find<QComboBox>("comboBoxOrderLimit"); }
    QCheckBox *limits() const { return find<QCheckBox>("cbOrderLimit"); }
};

/// Lays out a window in a font of `percent` of the normal size; gives the texts of its labels and buttons that are cut.
inline QStringList cutTexts(QWidget &window, int percent)
{
    QFont font = window.font();
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    window.setFont(font);
    window.show();
    QCoreApplication::processEvents();
    QStringList cut;
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const QSize needed = widget->sizeHint();
        if ((label || button) && (widget->width() < needed.width() || widget->height() < needed.height()))
            cut.append(label ? label->text() : button->text());
    }
    return cut;
}

/// Shows a window and gives it the keyboard.
inline void activate(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}
