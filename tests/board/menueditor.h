#pragma once

#include "board/daydata.h"
#include "board/dialogmenu.h"
#include "support/modelstrings.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

/// The editor with short ways to its widgets.
class MenuEditor : public DialogMenu {
public:
    explicit MenuEditor(const QSqlDatabase &db, const QString &slot = QStringLiteral("Obed"), bool limits = true,
                        unsigned branch = 0)
        : DialogMenu(DayData::day(), 1, branch, slot, db, limits, nullptr)
    {
    }

    template<typename Widget> Widget *find(const char *name) const { return findChild<Widget *>(QLatin1String(name)); }
    QListView *list() const { return find<QListView>("listViewFood"); }
    QTableView *table() const { return find<QTableView>("tableViewMenu"); }
    QLineEdit *filter() const { return find<QLineEdit>("lineEditFilter"); }
    QToolButton *tool(const char *name) const { return find<QToolButton>(name); }
    QStringList foods() const { return columnTexts(*list()->model(), 0); }
    QStringList menu() const { return columnTexts(*table()->model(), 0); }
    void selectFood(const QString &name) const { list()->setCurrentIndex(indexOf(*list()->model(), name)); }
    void selectItem(const QString &name, int column = 0) const
    {
        const QModelIndex index = indexOf(*table()->model(), name);
        table()->setCurrentIndex(index.sibling(index.row(), column));
    }
    QString currentItem() const { return table()->currentIndex().siblingAtColumn(0).data().toString(); }
    QStringList selection() const
    {
        QStringList cells;
        const QModelIndexList selected = table()->selectionModel()->selectedRows();
        for (const QModelIndex &index : selected)
            cells.append(index.data().toString());
        return cells;
    }
    /// Which of the two widgets that offer to add a food are shown: "", "label button" or, wrongly, one of them.
    QString offers() const
    {
        QStringList shown;
        if (find<QLabel>("labelAddFood")->isVisibleTo(this))
            shown.append(QStringLiteral("label"));
        if (find<QPushButton>("pushButtonAddFood")->isVisibleTo(this))
            shown.append(QStringLiteral("button"));
        return shown.join(QLatin1Char(' '));
    }

    static QModelIndex indexOf(const QAbstractItemModel &model, const QString &name)
    {
        return model.index(int(columnTexts(model, 0).indexOf(name)), 0);
    }
};

/// A user's double click: the click that comes with it, and the second one.
inline void doubleClick(const QAbstractItemView *view, const QModelIndex &index)
{
    const QPoint middle = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
}

/// Shows a window and gives it the keyboard.
inline void show(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}
