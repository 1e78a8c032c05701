#include "goldenpages.h"

#include "report/rptcrosstabobject.h"
#include "report/rptengine.h"
#include "report/rptfieldobject.h"

#include <QDomDocument>
#include <QTemporaryDir>

#include <poppler-qt5.h>

#include <memory>

namespace {

constexpr double dotsPerInch = 96;
constexpr int blockSize = 8;

struct Record {
    const char *type;
    const char *food;
    const char *price;
};

constexpr Record records[] = {
    {"Polievka", "Kapustnica", "1.8"},
    {"Hlavné jedlo", "Vyprážaný bravčový rezeň so zemiakovým šalátom a citrónom", "1123.45"},
    {"Polievka", "Vývar", "2"},
    {"Hlavné jedlo", "Bryndzové halušky", "5.505"},
    {"Dezert", "Parené buchty", "3.5"},
};

QVariant valueOf(const QString &name, int record)
{
    const Record &row = records[record];
    if (name == QLatin1String("type"))
        return QString::fromUtf8(row.type);
    if (name == QLatin1String("food"))
        return QString::fromUtf8(row.food);
    if (name == QLatin1String("price"))
        return QString::fromUtf8(row.price);
    return name == QLatin1String("day") ? QStringLiteral("pondelok") : QVariant();
}

QImage logo()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(QColor(0, 120, 180));
    for (int y = 0; y < image.height(); ++y)
        image.setPixelColor(2 * y, y, Qt::white);
    return image;
}

/// Two columns and four rows of numbers, and what the table adds itself.
void fillCrossTab(RptFieldObject &field)
{
    if (RptCrossTabObject *table = field.crossTab) {
        table->colHeader = QStringList{QStringLiteral("po"), QStringLiteral("ut"), QStringLiteral("spolu")};
        table->setColCount(2);
        table->setRowCount(4);
    } else if (const RptCrossTabObject *parent = field.parentCrossTab) {
        field.value = QString::number(10 * parent->cellRow(&field, false) + parent->cellCol(&field) + 1);
    }
}

void answer(RptEngine &engine)
{
    QObject::connect(&engine, &RptEngine::setDSInfo,
                     [](DataSetInfo &info) { info.recordCount = int(std::size(records)); });
    QObject::connect(&engine, &RptEngine::setValue,
                     [](int record, const QString &name, QVariant &value, int) { value = valueOf(name, record); });
    QObject::connect(&engine, &RptEngine::setValueImage,
                     [](int, const QString &, QImage &image, int) { image = logo(); });
    QObject::connect(&engine, &RptEngine::setField, fillCrossTab);
}

QImage halved(const QImage &page)
{
    return page.scaled(page.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

/// The sum over the three channels of a block.
int differenceOf(const QImage &one, const QImage &other, const QRect &block)
{
    int sum = 0;
    for (int y = block.top(); y <= block.bottom(); ++y) {
        for (int x = block.left(); x <= block.right(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
        }
    }
    return sum;
}

} // namespace

namespace GoldenPages {

QVector<QImage> print(const QDomDocument &report, Letters letters)
{
    RptEngine engine;
    engine.loadReportDocument(report);
    answer(engine);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("report.pdf"));
    engine.exportToPdf(fileName, true);
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(fileName));
    QVector<QImage> pages;
    if (!document)
        return pages;
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    document->setRenderHint(Poppler::Document::TextHinting, letters == Letters::Fitted);
    document->setRenderHint(Poppler::Document::TextSlightHinting, letters == Letters::Fitted);
    for (int number = 0; number < document->numPages(); ++number) {
        const std::unique_ptr<Poppler::Page> page(document->page(number));
        pages.append(page->renderToImage(dotsPerInch, dotsPerInch));
    }
    return pages;
}

QString Difference::text() const
{
    return QStringLiteral("mean %1, worst block %2 at %3, %4")
        .arg(mean, 0, 'f', 2)
        .arg(worst, 0, 'f', 1)
        .arg(at.x())
        .arg(at.y());
}

Difference compare(const QImage &one, const QImage &other)
{
    if (one.isNull() || one.size() != other.size())
        return {255, 255, {}};
    const QImage a = halved(one);
    const QImage b = halved(other);
    Difference difference;
    double total = 0;
    for (int top = 0; top < a.height(); top += blockSize) {
        for (int left = 0; left < a.width(); left += blockSize) {
            const QRect block = QRect(left, top, blockSize, blockSize) & a.rect();
            const double sum = differenceOf(a, b, block);
            total += sum;
            // A block cut off by the page's edge counts as a whole one, or a single pixel would weigh too much there.
            const double mean = sum / (3 * blockSize * blockSize);
            if (mean > difference.worst) {
                difference.worst = mean;
                difference.at = 2 * block.topLeft();
            }
        }
    }
    difference.mean = total / (3.0 * a.width() * a.height());
    return difference;
}

} // namespace GoldenPages
