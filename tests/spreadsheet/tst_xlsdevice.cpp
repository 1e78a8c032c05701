#include "spreadsheet/modelbook.h"
#include "spreadsheet/writers.h"

#include <QBuffer>
#include <QtTest>

using namespace Spreadsheet;

namespace {

/// Takes so many bytes and no more, as a disk that gets full.
class FullDevice : public QBuffer {
public:
    explicit FullDevice(qint64 capacity)
        : m_left(capacity)
    {
        open(ReadWrite);
    }

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        if (size > m_left) {
            setErrorString("No space left on device");
            return -1;
        }
        m_left -= size;
        return QBuffer::writeData(data, size);
    }

private:
    qint64 m_left;
};

} // namespace

/// What happens where a file cannot be written, and what writing it again gives.
class TestXlsDevice : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void same();
    void fullAnywhere();
    void tooLarge_data();
    void tooLarge();

private:
    const WorkbookData &data() const { return static_cast<const ModelBook *>(m_book.get())->data(); }
    QByteArray written() const;

    BookPointer m_book;
    Sheet *m_sheet = nullptr;
};

void TestXlsDevice::init()
{
    m_book.reset(new ModelBook(xlsKind));
    m_sheet = m_book->addSheet("s");
    for (int row = 0; row < 3000; ++row) {
        m_sheet->writeStr(row, 0, QString("text %1").arg(row));
        m_sheet->writeNum(row, 1, row / 7.0);
    }
}

void TestXlsDevice::cleanup()
{
    m_book.reset();
}

QByteArray TestXlsDevice::written() const
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QString error;
    if (!writeXls(data(), buffer, &error))
        qFatal("%s", qPrintable(error));
    return buffer.data();
}

void TestXlsDevice::same()
{
    const QByteArray first = written();
    QVERIFY(first.size() > 100000);
    QCOMPARE(first.size() % 512, 0);
    QCOMPARE(written(), first);
}

void TestXlsDevice::fullAnywhere()
{
    // More than the file's size passes through the device: places and tables are written last, over the first bytes.
    FullDevice large(1 << 30);
    QString error;
    QVERIFY(writeXls(data(), large, &error));
    const int size = written().size();
    int failures = 0;
    for (int capacity = 0; capacity < size; capacity += 1 + capacity / 10) {
        FullDevice device(capacity);
        error.clear();
        QVERIFY(!writeXls(data(), device, &error));
        QCOMPARE(error, QString("No space left on device"));
        ++failures;
    }
    QVERIFY(failures > 50);
    FullDevice last(size - 1);
    QVERIFY(!writeXls(data(), last, &error));
}

void TestXlsDevice::tooLarge_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("fits") << 65535 << 255;
    QTest::newRow("row") << 65536 << 0;
    QTest::newRow("column") << 0 << 256;
}

/// A book that may hold more is refused when it does.
void TestXlsDevice::tooLarge()
{
    QFETCH(int, row);
    QFETCH(int, col);
    using Operation = std::function<bool(Sheet *)>;
    const QVector<Operation> operations = {
        [=](Sheet *sheet) { return sheet->writeNum(row, col, 1); },
        [=](Sheet *sheet) { return sheet->setMerge(0, row, 0, qMax(1, col)); },
        [=](Sheet *sheet) { return row == 0 || (sheet->setRow(row, 10) && sheet->setPrintRepeatRows(0, row)); },
        [=](Sheet *sheet) { return col == 0 || sheet->setColHidden(col, true); },
    };
    const bool fits = row < 65536 && col < 256;
    for (int number = 0; number < operations.size(); ++number) {
        auto *book = new ModelBook(xlsxKind);
        const BookPointer guard(book);
        QVERIFY(operations.at(number)(book->addSheet("s", nullptr)));
        QBuffer buffer;
        buffer.open(QIODevice::ReadWrite);
        QString error;
        const bool untouched = (number == 2 && row == 0) || (number == 3 && col == 0);
        QCOMPARE(writeXls(book->data(), buffer, &error), fits || untouched);
        QCOMPARE(error, QString(fits || untouched ? "" : "The book is larger than an XLS file can be"));
    }
}

QTEST_MAIN(TestXlsDevice)
#include "tst_xlsdevice.moc"
