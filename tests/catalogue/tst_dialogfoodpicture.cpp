#include "catalogue/foodeditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QBuffer>
#include <QFileDialog>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>

#include <memory>

namespace {

/// A picture without large even areas, so that every encoding of it differs from the next.
QImage picture(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(0.5, Qt::yellow);
    gradient.setColorAt(1, Qt::blue);
    painter.fillRect(image.rect(), gradient);
    return image;
}

QByteArray encoded(const QImage &image, const char *format, int quality = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes;
}

QByteArray formatOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader::imageFormat(&buffer);
}

} // namespace

/// The picture of a food: shown, chosen, stored and kept.
class TestDialogFoodPicture : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DialogData>(*m_database); }
    void cleanup();

    void storedPictureIsScaledToItsPlace_data();
    void storedPictureIsScaledToItsPlace();
    void bytesThatAreNoPictureShowNothing();
    void savingKeepsTheStoredPicture();
    void hugeStoredPictureIsKept();
    void asksForAFile();
    void chosenPictureIsShownAndStored_data();
    void chosenPictureIsShownAndStored();
    void chosenPictureOfANewFood();
    void hugeChosenPictureKeepsTheDialogSmall();
    void cancelledChoiceChangesNothing();
    void unreadableFileChangesNothing_data();
    void unreadableFileChangesNothing();
    void unreadableFileKeepsTheFormerChoice();
    void pictureThatJpegCannotHoldIsNotStored();

private:
    QString file(const char *name, const QByteArray &bytes) const
    {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        QFile output(path);
        if (!output.open(QIODevice::WriteOnly) || output.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    void storePicture(const QByteArray &bytes) const
    {
        m_data->store("UPDATE via_foods SET picture=? WHERE foodID=11", bytes);
    }
    /// Presses the button and picks the file in the dialog that opens.
    void choose(const FoodEditor &editor, const QString &path)
    {
        m_boxes.expectDialog("QFileDialog", [path](QDialog *dialog) {
            dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        editor.choosePicture()->click();
        BOXES_DONE(m_boxes);
        QVERIFY(!QApplication::overrideCursor());
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    QTemporaryDir m_folder;
    BoxAnswerer m_boxes;
};

void TestDialogFoodPicture::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QVERIFY(m_folder.isValid());
    m_database = std::make_unique<TestDatabase>();
}

void TestDialogFoodPicture::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    BOXES_DONE(m_boxes);
}

void TestDialogFoodPicture::storedPictureIsScaledToItsPlace_data()
{
    QTest::addColumn<QSize>("stored");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("wide") << QSize(960, 240) << QSize(240, 60);
    QTest::newRow("high") << QSize(300, 600) << QSize(60, 120);
    QTest::newRow("small pictures grow") << QSize(24, 12) << QSize(240, 120);
}

void TestDialogFoodPicture::storedPictureIsScaledToItsPlace()
{
    QFETCH(QSize, stored);
    const QByteArray bytes = encoded(picture(stored), "PNG");
    storePicture(bytes);
    const FoodEditor editor(m_database->db(), 11);
    const QPixmap shown = editor.picture()->pixmap(Qt::ReturnByValue);
    QTEST(shown.size(), "shown");
    QPixmap expected;
    QVERIFY(expected.loadFromData(bytes));
    QCOMPARE(shown.toImage(), expected.scaled(QSize(240, 120), Qt::KeepAspectRatio, Qt::FastTransformation).toImage());
}

void TestDialogFoodPicture::bytesThatAreNoPictureShowNothing()
{
    for (const QByteArray &bytes :
         {QByteArray("no picture"), encoded(picture(QSize(99, 99)), "PNG").left(20), QByteArray("")}) {
        storePicture(bytes);
        LogCatcher log;
        FoodEditor editor(m_database->db(), 11);
        QVERIFY(editor.picture()->pixmap(Qt::ReturnByValue).isNull());
        QCOMPARE(log.lines(QtWarningMsg), QStringList());
        editor.save()->click();
        QCOMPARE(m_data->picture(11), bytes);
    }
}

void TestDialogFoodPicture::savingKeepsTheStoredPicture()
{
    const QByteArray bytes = encoded(picture(QSize(640, 480)), "PNG");
    storePicture(bytes);
    FoodEditor editor(m_database->db(), 11);
    QVERIFY(!editor.picture()->pixmap(Qt::ReturnByValue).isNull());
    editor.name()->setText(QStringLiteral("Omáčka"));
    editor.save()->click();
    QCOMPARE(m_data->food(11), QString("92|2|Omáčka|so smotanou|3.5"));
    QCOMPARE(m_data->picture(11), bytes);
}

void TestDialogFoodPicture::hugeStoredPictureIsKept()
{
    const QSize small = FoodEditor(m_database->db(), 11).sizeHint();
    const QByteArray bytes = encoded(picture(QSize(5000, 4000)), "JPG", 30);
    storePicture(bytes);
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    QCOMPARE(editor.sizeHint(), small);
    QCOMPARE(editor.picture()->pixmap(Qt::ReturnByValue).size(), QSize(150, 120));
    editor.name()->setText(QStringLiteral("Omáčka"));
    editor.save()->click();
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->food(11), QString("92|2|Omáčka|so smotanou|3.5"));
    QVERIFY2(m_data->picture(11) == bytes, "the picture was encoded anew");
}

void TestDialogFoodPicture::asksForAFile()
{
    const FoodEditor editor(m_database->db(), 11);
    m_boxes.expectDialog("QFileDialog", [&editor](QDialog *dialog) {
        const auto *files = qobject_cast<QFileDialog *>(dialog);
        QCOMPARE(files->windowTitle(), QString("Vybrať obrázok"));
        QCOMPARE(files->nameFilters(), (QStringList{"JPEG (*.jpg *.jpeg)", "PNG (*.png)"}));
        QCOMPARE(files->selectedNameFilter(), QString("JPEG (*.jpg *.jpeg)"));
        QCOMPARE(files->acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(files->fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(static_cast<const QWidget *>(files->parentWidget()), static_cast<const QWidget *>(&editor));
        dialog->reject();
    });
    editor.choosePicture()->click();
}

void TestDialogFoodPicture::chosenPictureIsShownAndStored_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("name");
    QTest::newRow("JPEG") << QByteArray("JPG") << "guláš.jpg";
    QTest::newRow("PNG") << QByteArray("PNG") << "guláš.png";
    QTest::newRow("PNG named as JPEG") << QByteArray("PNG") << "o'brien & 100%.jpeg";
}

void TestDialogFoodPicture::chosenPictureIsShownAndStored()
{
    QFETCH(QByteArray, format);
    QFETCH(QString, name);
    storePicture("before");
    const QString path = file(name.toUtf8().constData(), encoded(picture(QSize(800, 600)), format.constData()));
    FoodEditor editor(m_database->db(), 11);
    choose(editor, path);
    const QPixmap shown = editor.picture()->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.toImage(), QPixmap(path).toImage());
    QCOMPARE(m_data->picture(11), QByteArray("before"));
    editor.save()->click();
    const QByteArray stored = m_data->picture(11);
    QCOMPARE(formatOf(stored), QByteArray("jpeg"));
    QCOMPARE(QImage::fromData(stored).size(), QSize(800, 600));
    QCOMPARE(stored, encoded(shown.toImage(), "JPG"));
}

void TestDialogFoodPicture::chosenPictureOfANewFood()
{
    FoodEditor editor(m_database->db());
    editor.name()->setText(QStringLiteral("Rezeň"));
    choose(editor, file("rezeň.png", encoded(picture(QSize(320, 200)), "PNG")));
    editor.save()->click();
    const QByteArray stored = m_data->picture(m_data->lastFood());
    QCOMPARE(formatOf(stored), QByteArray("jpeg"));
    QCOMPARE(QImage::fromData(stored).size(), QSize(320, 200));
}

void TestDialogFoodPicture::hugeChosenPictureKeepsTheDialogSmall()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    const QSize size = editor.size();
    const QSize smallest = editor.minimumSizeHint();
    choose(editor, file("huge.jpg", encoded(picture(QSize(5000, 4000)), "JPG")));
    QCoreApplication::processEvents();
    QCOMPARE(editor.picture()->pixmap(Qt::ReturnByValue).size(), QSize(5000, 4000));
    QCOMPARE(editor.size(), size);
    QCOMPARE(editor.minimumSizeHint(), smallest);
    editor.save()->click();
    QCOMPARE(QImage::fromData(m_data->picture(11)).size(), QSize(5000, 4000));
}

void TestDialogFoodPicture::cancelledChoiceChangesNothing()
{
    const QByteArray bytes = encoded(picture(QSize(480, 240)), "PNG");
    storePicture(bytes);
    FoodEditor editor(m_database->db(), 11);
    m_boxes.expectDialog("QFileDialog", [](QDialog *dialog) { dialog->reject(); });
    editor.choosePicture()->click();
    QCOMPARE(editor.picture()->pixmap(Qt::ReturnByValue).size(), QSize(240, 120));
    editor.save()->click();
    QCOMPARE(m_data->picture(11), bytes);
}

void TestDialogFoodPicture::unreadableFileChangesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << QByteArray("no picture at all");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off in the header") << encoded(picture(QSize(99, 99)), "JPG").left(12);
}

void TestDialogFoodPicture::unreadableFileChangesNothing()
{
    QFETCH(QByteArray, content);
    const QByteArray bytes = encoded(picture(QSize(480, 240)), "PNG");
    storePicture(bytes);
    FoodEditor editor(m_database->db(), 11);
    const QImage shown = editor.picture()->pixmap(Qt::ReturnByValue).toImage();
    choose(editor, file("broken.jpg", content));
    QCOMPARE(editor.picture()->pixmap(Qt::ReturnByValue).toImage(), shown);
    editor.save()->click();
    QCOMPARE(m_data->picture(11), bytes);
}

void TestDialogFoodPicture::unreadableFileKeepsTheFormerChoice()
{
    FoodEditor editor(m_database->db(), 11);
    choose(editor, file("good.png", encoded(picture(QSize(64, 48)), "PNG")));
    choose(editor, file("broken.jpg", "no picture at all"));
    editor.save()->click();
    QCOMPARE(QImage::fromData(m_data->picture(11)).size(), QSize(64, 48));
}

void TestDialogFoodPicture::pictureThatJpegCannotHoldIsNotStored()
{
    storePicture("before");
    FoodEditor editor(m_database->db(), 11);
    choose(editor, file("long.png", encoded(picture(QSize(70000, 1)), "PNG"))); // JPEG ends at 65,500 pixels
    editor.name()->setText(QStringLiteral("Omáčka"));
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.critical(), QStringList{"DialogFood - the picture cannot be stored as JPEG, food 11"});
    QCOMPARE(m_data->food(11), QString("92|2|Omáčka|so smotanou|3.5"));
    QCOMPARE(m_data->picture(11), QByteArray("before"));
}

QTEST_MAIN(TestDialogFoodPicture)
#include "tst_dialogfoodpicture.moc"
