#include "board/totaldelegate.h"

#include <QApplication>
#include <QDialog>
#include <QIntValidator>
#include <QLineEdit>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include <limits>

namespace {

enum Column { NameColumn, MinusColumn, QuantityColumn, PlusColumn, Count };

/// Remembers which push buttons the application's style was asked for.
class RecordingStyle : public QProxyStyle {
public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_PushButton) {
            const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
            buttons.append(QStringLiteral("%1 %2x%3 %4")
                               .arg(button->text)
                               .arg(button->rect.width())
                               .arg(button->rect.height())
                               .arg(bool(button->state & State_Enabled)));
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QStringList buttons;
};

} // namespace

class TestTotalDelegate : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_model.reset(); }

    void editorTakesWholeNumbers_data();
    void editorTakesWholeNumbers();
    void editorStaysPlainInEveryLocale_data();
    void editorStaysPlainInEveryLocale();
    void editorShowsAndWritesTheText();
    void buttonsArePaintedByTheStyle_data();
    void buttonsArePaintedByTheStyle();
    void otherCellsArePaintedAsUsual();
    void buttonsChangeTheQuantity_data();
    void buttonsChangeTheQuantity();
    void onlyAReleaseWithinTheCellCounts();
    void rowsWithoutAPositionDoNotReact_data();
    void rowsWithoutAPositionDoNotReact();
    void disabledButtonCellsReactInATable();
    void enterEndsTheTypingAndPressesNoButton();
    void clearedQuantityIsZero();
    void halfTypedQuantityIsNotTaken();

private:
    QModelIndex cell(int column) const { return m_model->index(0, column); }
    QString quantity() const { return cell(QuantityColumn).data().toString(); }
    void setRow(const QString &position, const QString &quantity, bool marked = false)
    {
        m_model->item(0, MinusColumn)->setText(position);
        m_model->item(0, MinusColumn)->setData(marked, TotalDelegate::ButtonsRole);
        m_model->item(0, QuantityColumn)->setText(quantity);
    }
    void send(QEvent::Type type, int column, QPoint point = QPoint(10, 10))
    {
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 30, 30);
        QMouseEvent event(type, point, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        m_delegate.editorEvent(&event, m_model.get(), option, cell(column));
    }
    QImage painted(int column)
    {
        QImage image(40, 30, QImage::Format_ARGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(5, 3, 30, 24);
        m_delegate.paint(&painter, option, cell(column));
        return image;
    }

    TotalDelegate m_delegate;
    std::unique_ptr<QStandardItemModel> m_model;
};

void TestTotalDelegate::init()
{
    m_model = std::make_unique<QStandardItemModel>();
    QList<QStandardItem *> row;
    for (int column = 0; column < Count; ++column)
        row.append(new QStandardItem(column == NameColumn ? QStringLiteral("jedlo") : QString()));
    m_model->appendRow(row);
    setRow(QStringLiteral("1"), QString());
}

void TestTotalDelegate::editorTakesWholeNumbers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("state");
    QTest::newRow("a number") << "12" << int(QValidator::Acceptable);
    QTest::newRow("negative") << "-3" << int(QValidator::Acceptable);
    QTest::newRow("largest") << "2147483647" << int(QValidator::Acceptable);
    QTest::newRow("smallest") << "-2147483648" << int(QValidator::Acceptable);
    QTest::newRow("far beyond") << "99999999999" << int(QValidator::Invalid);
    QTest::newRow("letters") << "veľa" << int(QValidator::Invalid);
    QTest::newRow("a fraction") << "1.5" << int(QValidator::Invalid);
    QTest::newRow("empty") << "" << int(QValidator::Intermediate);
    QTest::newRow("a sign alone") << "-" << int(QValidator::Intermediate);
}

void TestTotalDelegate::editorTakesWholeNumbers()
{
    QFETCH(QString, typed);
    QWidget parent;
    const auto *editor = qobject_cast<QLineEdit *>(m_delegate.createEditor(&parent, {}, cell(QuantityColumn)));
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    const auto *validator = qobject_cast<const QIntValidator *>(editor->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), std::numeric_limits<int>::min());
    QCOMPARE(validator->top(), std::numeric_limits<int>::max());
    int position = 0;
    QTEST(int(validator->validate(typed, position)), "state");
}

void TestTotalDelegate::editorStaysPlainInEveryLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("grouped");
    QTest::newRow("English") << "en_US"
                             << "1,000";
    QTest::newRow("Slovak") << "sk_SK" << QStringLiteral("1\u00a0000");
    QTest::newRow("C") << "C"
                       << "1,000";
}

void TestTotalDelegate::editorStaysPlainInEveryLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, grouped);
    QLocale::setDefault(QLocale(locale));
    QWidget parent;
    const auto *editor = qobject_cast<QLineEdit *>(m_delegate.createEditor(&parent, {}, cell(QuantityColumn)));
    QLocale::setDefault(QLocale::c());
    int position = 0;
    QVERIFY(editor->validator()->validate(grouped, position) != QValidator::Acceptable);
    QString plain = QStringLiteral("1000");
    QCOMPARE(editor->validator()->validate(plain, position), QValidator::Acceptable);
}

void TestTotalDelegate::editorShowsAndWritesTheText()
{
    QLineEdit editor;
    setRow(QStringLiteral("1"), QStringLiteral("3"));
    m_delegate.setEditorData(&editor, cell(QuantityColumn));
    QCOMPARE(editor.text(), QStringLiteral("3"));
    editor.setText(QStringLiteral("-7"));
    m_delegate.setModelData(&editor, m_model.get(), cell(QuantityColumn));
    QCOMPARE(cell(QuantityColumn).data(Qt::EditRole), QVariant(QStringLiteral("-7")));
}

void TestTotalDelegate::buttonsArePaintedByTheStyle_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("position");
    QTest::addColumn<bool>("marked");
    QTest::addColumn<QStringList>("buttons");
    const QStringList minus{QStringLiteral("- 30x24 1")};
    const QStringList plus{QStringLiteral("+ 30x24 1")};
    QTest::newRow("minus") << int(MinusColumn) << "4" << false << minus;
    QTest::newRow("plus") << int(PlusColumn) << "4" << false << plus;
    QTest::newRow("minus of a heading") << int(MinusColumn) << "0" << false << QStringList();
    QTest::newRow("plus of a heading") << int(PlusColumn) << "0" << false << QStringList();
    QTest::newRow("plus without a position") << int(PlusColumn) << "" << false << QStringList();
    QTest::newRow("minus of a marked row") << int(MinusColumn) << "0" << true << minus;
    QTest::newRow("plus of a marked row") << int(PlusColumn) << "0" << true << plus;
}

void TestTotalDelegate::buttonsArePaintedByTheStyle()
{
    QFETCH(int, column);
    QFETCH(QString, position);
    QFETCH(bool, marked);
    QFETCH(QStringList, buttons);
    setRow(position, QStringLiteral("1"), marked);
    m_model->item(0, PlusColumn)->setText(QStringLiteral("4.50 €"));
    auto *style = new RecordingStyle;
    QApplication::setStyle(style);
    const QImage image = painted(column);
    const QStringList drawn = style->buttons;
    QApplication::setStyle(QStringLiteral("fusion"));
    QCOMPARE(drawn, buttons);
    QImage blank(image.size(), image.format());
    blank.fill(Qt::magenta);
    QCOMPARE(image == blank, buttons.isEmpty()); // neither position nor money is shown
}

void TestTotalDelegate::otherCellsArePaintedAsUsual()
{
    setRow(QStringLiteral("0"), QStringLiteral("5"));
    const QItemDelegate usual;
    for (const int column : {NameColumn, QuantityColumn}) {
        QImage expected(40, 30, QImage::Format_ARGB32);
        expected.fill(Qt::magenta);
        QPainter painter(&expected);
        QStyleOptionViewItem option;
        option.rect = QRect(5, 3, 30, 24);
        usual.paint(&painter, option, cell(column));
        painter.end();
        QCOMPARE(painted(column), expected);
    }
}

void TestTotalDelegate::buttonsChangeTheQuantity_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("lowered");
    QTest::addColumn<QString>("raised");
    QTest::newRow("empty") << ""
                           << ""
                           << "1";
    QTest::newRow("zero") << "0"
                          << "0"
                          << "1";
    QTest::newRow("one") << "1"
                         << "0"
                         << "2";
    QTest::newRow("ten") << "10"
                         << "9"
                         << "11";
    QTest::newRow("negative") << "-3"
                              << "-4"
                              << "-2";
    QTest::newRow("largest") << "2147483647"
                             << "2147483646"
                             << "2147483647";
    QTest::newRow("smallest") << "-2147483648"
                              << "-2147483648"
                              << "-2147483647";
}

void TestTotalDelegate::buttonsChangeTheQuantity()
{
    QFETCH(QString, before);
    setRow(QStringLiteral("4"), before);
    send(QEvent::MouseButtonRelease, MinusColumn);
    QTEST(quantity(), "lowered");
    setRow(QStringLiteral("4"), before);
    send(QEvent::MouseButtonRelease, PlusColumn);
    QTEST(quantity(), "raised");
}

void TestTotalDelegate::onlyAReleaseWithinTheCellCounts()
{
    setRow(QStringLiteral("4"), QStringLiteral("5"));
    send(QEvent::MouseButtonPress, PlusColumn);
    send(QEvent::MouseButtonDblClick, PlusColumn);
    send(QEvent::MouseButtonRelease, PlusColumn, QPoint(31, 10));
    send(QEvent::MouseButtonRelease, PlusColumn, QPoint(10, -1));
    send(QEvent::MouseButtonRelease, NameColumn);
    send(QEvent::MouseButtonRelease, QuantityColumn);
    QCOMPARE(quantity(), QStringLiteral("5"));
}

void TestTotalDelegate::rowsWithoutAPositionDoNotReact_data()
{
    QTest::addColumn<QString>("position");
    QTest::addColumn<bool>("marked");
    QTest::addColumn<QString>("after");
    QTest::newRow("heading") << "0" << false << "5";
    QTest::newRow("empty") << "" << false << "5";
    QTest::newRow("marked") << "0" << true << "6";
}

void TestTotalDelegate::rowsWithoutAPositionDoNotReact()
{
    QFETCH(QString, position);
    QFETCH(bool, marked);
    setRow(position, QStringLiteral("5"), marked);
    send(QEvent::MouseButtonRelease, PlusColumn);
    QTEST(quantity(), "after");
}

void TestTotalDelegate::disabledButtonCellsReactInATable()
{
    setRow(QStringLiteral("4"), QStringLiteral("5"));
    for (const int column : {NameColumn, MinusColumn, PlusColumn})
        m_model->item(0, column)->setEnabled(false);
    QTableView table;
    table.setModel(m_model.get());
    table.setItemDelegate(&m_delegate);
    table.resize(600, 200);
    table.show();
    const auto click = [&table, this](int column) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, table.visualRect(cell(column)).center());
    };
    click(PlusColumn);
    QCOMPARE(quantity(), QStringLiteral("6"));
    click(MinusColumn);
    click(MinusColumn);
    QCOMPARE(quantity(), QStringLiteral("4"));
    click(NameColumn);
    QCOMPARE(quantity(), QStringLiteral("4"));
}

namespace {

/// A table with one quantity beside a default button, in a window that has the keyboard.
class Window : public QDialog {
public:
    Window(QStandardItemModel *model, QAbstractItemDelegate *delegate)
        : button(this)
        , table(this)
    {
        button.setDefault(true);
        connect(&button, &QPushButton::clicked, this, [this] { ++pressed; });
        table.setModel(model);
        table.setItemDelegate(delegate);
        table.setGeometry(0, 40, 500, 200);
        resize(500, 240);
        show();
        QApplication::setActiveWindow(this);
        table.setFocus();
        table.setCurrentIndex(model->index(0, QuantityColumn));
    }

    QLineEdit *type(const QString &text)
    {
        QTest::keyClick(&table, Qt::Key_F2);
        auto *editor = table.findChild<QLineEdit *>();
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
        return editor;
    }
    bool isEditing() const { return table.findChild<QLineEdit *>(); }

    QPushButton button;
    QTableView table;
    int pressed = 0;
};

} // namespace

void TestTotalDelegate::enterEndsTheTypingAndPressesNoButton()
{
    Window window(m_model.get(), &m_delegate);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        m_model->item(0, QuantityColumn)->setText(QString());
        QTest::keyClick(window.type(QStringLiteral("12")), key);
        QTRY_VERIFY(!window.isEditing());
        QCOMPARE(quantity(), QStringLiteral("12"));
        QCOMPARE(window.pressed, 0);
        QVERIFY(window.table.hasFocus());
    }
}

void TestTotalDelegate::clearedQuantityIsZero()
{
    setRow(QStringLiteral("4"), QStringLiteral("5"));
    Window window(m_model.get(), &m_delegate);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.type(QString()), Qt::Key_Return);
    QTRY_VERIFY(!window.isEditing());
    QCOMPARE(quantity(), QStringLiteral("0"));
}

void TestTotalDelegate::halfTypedQuantityIsNotTaken()
{
    setRow(QStringLiteral("4"), QStringLiteral("5"));
    Window window(m_model.get(), &m_delegate);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QLineEdit *editor = window.type(QStringLiteral("-"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::qWait(5);
    QVERIFY(window.isEditing());
    QTest::keyClick(editor, Qt::Key_Escape);
    QTRY_VERIFY(!window.isEditing());
    QCOMPARE(quantity(), QStringLiteral("5"));
}

QTEST_MAIN(TestTotalDelegate)
#include "tst_totaldelegate.moc"
