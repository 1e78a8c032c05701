#include "forms.h"
#include "suppliers/listcontent.h"

#include <QPointer>
#include <QSignalSpy>
#include <QStandardItemModel>

class TestListContent : public QObject {
    Q_OBJECT

private slots:
    void showsTheColumn();
    void disposesOfTheOldModel();
    void keepsTheModelItHas();
    void currentRowIsSelected();
    void mouseSelectsOnce();
};

namespace {

QStandardItemModel *content(const QStringList &texts)
{
    auto *model = new QStandardItemModel(0, 2);
    for (const QString &text : texts)
        model->appendRow({new QStandardItem(QStringLiteral("key")), new QStandardItem(text)});
    return model;
}

QStringList three()
{
    return {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
}

} // namespace

void TestListContent::showsTheColumn()
{
    QListView view;
    QStandardItemModel *model = content(three());
    showContent(&view, model);
    QCOMPARE(view.model(), model);
    QCOMPARE(view.modelColumn(), 1);
    QCOMPARE(model->parent(), &view);
    QVERIFY(!view.currentIndex().isValid());
}

void TestListContent::disposesOfTheOldModel()
{
    QListView view;
    const QPointer<QStandardItemModel> old = content(three());
    showContent(&view, old);
    const QPointer<QItemSelectionModel> oldSelection = view.selectionModel();
    showContent(&view, content({QStringLiteral("d")}));
    QVERIFY(old); // the caller may be in the middle of one of its signals
    QTRY_VERIFY(!old);
    QTRY_VERIFY(!oldSelection);
    QCOMPARE(columnTexts(*view.model(), 1), QStringList{QStringLiteral("d")});
    QVERIFY(view.selectionModel());
}

void TestListContent::keepsTheModelItHas()
{
    QListView view;
    const QPointer<QStandardItemModel> model = content(three());
    showContent(&view, model);
    view.setCurrentIndex(model->index(2, 1));
    showContent(&view, model);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(model);
    QCOMPARE(view.currentIndex().row(), 2);
}

void TestListContent::currentRowIsSelected()
{
    QWidget window;
    QListView view(&window);
    showContent(&view, content(three()));
    show(window);
    view.setFocus(); // a list that gets the focus makes its first row current
    QTRY_COMPARE(view.currentIndex().row(), 0);
    QVERIFY(view.selectionModel()->isSelected(view.currentIndex()));
    view.selectionModel()->setCurrentIndex(view.model()->index(1, 1), QItemSelectionModel::NoUpdate);
    QCOMPARE(view.selectionModel()->selectedRows().size(), 1);
    QCOMPARE(view.selectionModel()->selectedRows().first().row(), 1);
}

void TestListContent::mouseSelectsOnce()
{
    QListView view;
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    showContent(&view, content(three()));
    show(view);
    const QSignalSpy spy(view.selectionModel(), &QItemSelectionModel::selectionChanged);
    QVERIFY(spy.isValid());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, rowText(&view, view.model()->index(1, 1)));
    QCOMPARE(view.currentIndex().row(), 1);
    QCOMPARE(spy.count(), 1);
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.currentIndex().row(), 2);
    QCOMPARE(spy.count(), 2);
}

QTEST_MAIN(TestListContent)
#include "tst_listcontent.moc"
