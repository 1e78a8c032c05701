#pragma once

#include "catalogue/foodwidget.h"
#include "support/modelstrings.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

/// The page of foods with short ways to its widgets.
class FoodPage : public FoodWidget {
public:
    explicit FoodPage(const QSqlDatabase &db)
        : FoodWidget(db)
    {
    }

    template<typename Widget> Widget *find(const char *name) const { return findChild<Widget *>(QLatin1String(name)); }
    QTableView *types() const { return find<QTableView>("tableViewType"); }
    QTableView *foods() const { return find<QTableView>("tableViewFood"); }
    QLineEdit *filter() const { return find<QLineEdit>("searchFilter"); }
    QPushButton *button(const char *name) const { return find<QPushButton>(name); }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }
    QString title() const { return text("labelTitle"); }
    QString description() const { return find<QPlainTextEdit>("plainTextEditDescription")->toPlainText(); }
    QStringList names() const { return columnTexts(*foods()->model(), 0); }
    void selectFood(int row) const { foods()->setCurrentIndex(foods()->model()->index(row, 0)); }
    void selectType(int row) const { types()->setCurrentIndex(types()->model()->index(row, 1)); }
};

/// Shows a window and gives it the keyboard.
inline void showActive(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}
