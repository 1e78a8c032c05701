#include "report/rptfieldobject.h"

#include "elements.h"
#include "report/rptbandobject.h"

#include "support/logcatcher.h"

#include <QtTest>

#include <limits>
#include <memory>

class TestRptFieldObject : public QObject {
    Q_OBJECT

private slots:
    void newField();
    void elementWithoutAttributes();
    void texts_data();
    void texts();
    void numbers_data();
    void numbers();
    void flags_data();
    void flags();
    void colors_data();
    void colors();
    void rect_data();
    void rect();
    void borderWidth_data();
    void borderWidth();
    void alignment();
    void font();
    void fontFlags_data();
    void fontFlags();
    void fontSizes();
    void cloneCopiesValues();

private:
    std::unique_ptr<RptFieldObject> read(AttributeList attributes)
    {
        auto field = std::make_unique<RptFieldObject>();
        field->readFieldElement(nullptr, makeElement(&m_document, "TContainerField", attributes));
        return field;
    }

    QDomDocument m_document;
};

namespace {

template<class Value> struct Member {
    const char *name;
    Value RptFieldObject::*member;
    Value otherwise;
};

constexpr Member<int> numberMembers[] = {
    {"rotate", &RptFieldObject::rotate, 0},
    {"barcodeType", &RptFieldObject::barcodeType, 13},
    {"barcodeFrameType", &RptFieldObject::barcodeFrameType, 0},
    {"barcodeHeight", &RptFieldObject::barcodeHeight, 50},
    {"ignoreAspectRatio", &RptFieldObject::ignoreAspectRatio, 1},
    {"lineStartX", &RptFieldObject::lineStartX, 0},
    {"lineEndX", &RptFieldObject::lineEndX, 0},
    {"lineStartY", &RptFieldObject::lineStartY, 0},
    {"lineEndY", &RptFieldObject::lineEndY, 0},
};

constexpr Member<bool> flagMembers[] = {
    {"autoHeight", &RptFieldObject::autoHeight, false},
    {"textWrap", &RptFieldObject::textWrap, true},
    {"arrowStart", &RptFieldObject::arrowStart, false},
    {"arrowEnd", &RptFieldObject::arrowEnd, false},
};

QVector<Member<QString>> textMembers()
{
    return {
        {"highlighting", &RptFieldObject::highlighting, ""},
        {"printing", &RptFieldObject::printing, "1"},
        {"name", &RptFieldObject::name, ""},
        {"value", &RptFieldObject::value, ""},
        {"borderStyle", &RptFieldObject::borderStyle, "solid"},
        {"imgFormat", &RptFieldObject::imgFormat, "PNG"},
        {"format", &RptFieldObject::formatString, ""},
    };
}

struct ColorMember {
    const char *name;
    QColor RptFieldObject::*member;
    QColor RptFieldObject::*fallback;
};

constexpr ColorMember colorMembers[] = {
    {"borderTop", &RptFieldObject::borderTop, nullptr},
    {"borderBottom", &RptFieldObject::borderBottom, nullptr},
    {"borderLeft", &RptFieldObject::borderLeft, nullptr},
    {"borderRight", &RptFieldObject::borderRight, nullptr},
    {"borderColor", &RptFieldObject::borderColor, nullptr},
    {"backgroundColor", &RptFieldObject::backgroundColor, &RptFieldObject::defaultBackgroundColor},
    {"fontColor", &RptFieldObject::fontColor, &RptFieldObject::defaultFontColor},
};

template<class List> void addNames(const List &list)
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const auto &member : list)
        QTest::newRow(member.name) << index++;
}

QVector<int> edges(const QRect &rect)
{
    return {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

} // namespace

void TestRptFieldObject::newField()
{
    const RptFieldObject field;
    QCOMPARE(field.autoHeight, false);
    QCOMPARE(field.borderWidth, 1);
    QCOMPARE(field.printing, QStringLiteral("1"));
    QCOMPARE(field.highlighting, QString());
    QCOMPARE(field.aligment, Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(field.rotate, 0);
    QCOMPARE(edges(field.rect), QVector<int>({0, 0, -1, -1}));
    QVERIFY(field.rect.isNull());
    for (const QColor &black : {field.borderTop, field.borderBottom, field.borderLeft, field.borderRight,
                                field.borderColor, field.fontColor, field.defaultFontColor})
        QCOMPARE(black, QColor(Qt::black));
    QCOMPARE(field.backgroundColor, QColor(Qt::white));
    QCOMPARE(field.defaultBackgroundColor, QColor(Qt::white));
    QCOMPARE(field.fieldType, 0);
    QVERIFY(!field.parentBand && !field.parentCrossTab && !field.chart && !field.crossTab && !field.report);
    QVERIFY(!field.isCrossTabCell());
}

void TestRptFieldObject::elementWithoutAttributes()
{
    const LogCatcher log;
    const auto field = read({});
    const auto allMembers = textMembers();
    for (const auto &member : allMembers)
        QCOMPARE((*field).*member.member, member.otherwise);
    for (const auto &member : numberMembers)
        QCOMPARE((*field).*member.member, member.otherwise);
    for (const auto &member : flagMembers)
        QCOMPARE((*field).*member.member, member.otherwise);
    for (const auto &member : colorMembers)
        QVERIFY2(!((*field).*member.member).isValid(), member.name);
    QCOMPARE(edges(field->rect), QVector<int>({0, 0, -1, -1}));
    QCOMPARE(field->borderWidth, 1);
    QCOMPARE(static_cast<int>(field->aligment), 0);
    QCOMPARE(field->font.family(), QString());
    QCOMPARE(field->font.weight(), 50);
    QVERIFY(!field->font.italic() && !field->font.underline() && !field->font.strikeOut());
    QCOMPARE(field->fieldType, 0);
    QCOMPARE(field->picture, QByteArray::fromBase64("text"));
    QVERIFY(!field->chart && !field->crossTab);
    QCOMPARE(log.lines(), QStringList());
}

void TestRptFieldObject::texts_data()
{
    addNames(textMembers());
}

void TestRptFieldObject::texts()
{
    QFETCH(int, index);
    const auto member = textMembers().at(index);
    const QVector<QString> allTexts = hostileTexts();
    for (const QString &text : allTexts)
        QCOMPARE((*read({{member.name, text}})).*member.member, text);
}

void TestRptFieldObject::numbers_data()
{
    addNames(numberMembers);
}

void TestRptFieldObject::numbers()
{
    QFETCH(int, index);
    const auto &member = numberMembers[index];
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QCOMPARE((*read({{member.name, known.first}})).*member.member, known.second);
}

void TestRptFieldObject::flags_data()
{
    addNames(flagMembers);
}

void TestRptFieldObject::flags()
{
    QFETCH(int, index);
    const auto &member = flagMembers[index];
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QCOMPARE((*read({{member.name, known.first}})).*member.member, known.second != 0);
}

void TestRptFieldObject::colors_data()
{
    addNames(colorMembers);
}

void TestRptFieldObject::colors()
{
    QFETCH(int, index);
    const ColorMember &member = colorMembers[index];
    const QVector<QPair<QString, QColor>> cases{
        {"rgba(1,2,3,4)", QColor(1, 2, 3, 4)},      {"rgba(255,255,255,255)", QColor(255, 255, 255, 255)},
        {"rgba(1,2,3)", QColor(1, 2, 3, 0)},        {"red", QColor(0, 0, 0, 0)},
        {"rgba(900,-5,x,1)", QColor(255, 0, 0, 1)}, {"", QColor()}};
    for (const auto &known : cases) {
        const auto field = read({{member.name, known.first}});
        QCOMPARE((*field).*member.member, known.second);
        if (member.fallback)
            QCOMPARE((*field).*member.fallback, known.second);
    }
}

void TestRptFieldObject::rect_data()
{
    QTest::addColumn<QStringList>("texts"); // left, top, width, height
    QTest::addColumn<QVector<int>>("expected"); // left, top, right, bottom
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::newRow("usual") << QStringList{"5", "7", "10", "20"} << QVector<int>{5, 7, 14, 26};
    QTest::newRow("no size") << QStringList{"5", "7", "0", "0"} << QVector<int>{5, 7, 4, 6};
    QTest::newRow("one unit") << QStringList{"5", "7", "1", "1"} << QVector<int>{5, 7, 5, 7};
    QTest::newRow("negative place") << QStringList{"-5", "-7", "10", "20"} << QVector<int>{-5, -7, 4, 12};
    QTest::newRow("negative size") << QStringList{"5", "7", "-10", "-20"} << QVector<int>{5, 7, -6, -14};
    QTest::newRow("real size") << QStringList{"5", "7", "10.5", "20.5"} << QVector<int>{5, 7, 4, 6};
    QTest::newRow("text") << QStringList{"left", "", "<b>", "10px"} << QVector<int>{0, 0, -1, -1};
    QTest::newRow("largest") << QStringList{"2147483647", "5", "2147483647", "2147483647"}
                             << QVector<int>{most, 5, most, most};
    QTest::newRow("smallest") << QStringList{"-2147483648", "-2147483648", "-2147483648", "0"}
                              << QVector<int>{least, least, least, least};
}

void TestRptFieldObject::rect()
{
    QFETCH(QStringList, texts);
    const auto field =
        read({{"left", texts.at(0)}, {"top", texts.at(1)}, {"width", texts.at(2)}, {"height", texts.at(3)}});
    QTEST(edges(field->rect), "expected");
}

void TestRptFieldObject::borderWidth_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("unit") << "1px" << 1;
    QTest::newRow("none") << "1" << 1;
    QTest::newRow("wide") << "12px" << 12;
    QTest::newRow("blank") << "2 px" << 2;
    QTest::newRow("unit twice") << "px3px" << 3;
    QTest::newRow("zero") << "0px" << 0;
    QTest::newRow("negative") << "-2px" << -2;
    QTest::newRow("other unit") << "1mm" << 0;
    QTest::newRow("capitals") << "1PX" << 0;
    QTest::newRow("unit alone") << "px" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("huge") << "99999999999px" << 0;
}

void TestRptFieldObject::borderWidth()
{
    QFETCH(QString, text);
    QTEST(read({{"borderWidth", text}})->borderWidth, "width");
}

void TestRptFieldObject::alignment()
{
    QCOMPARE(static_cast<int>(read({{"aligmentH", "hJustify"}, {"aligmentV", "vBottom"}})->aligment), 8 | 64);
    QCOMPARE(static_cast<int>(read({{"aligmentH", "hCenter"}})->aligment), 4);
    QCOMPARE(static_cast<int>(read({{"aligmentV", "vTop"}})->aligment), 32);
    QCOMPARE(static_cast<int>(read({{"aligmentH", "vTop"}, {"aligmentV", "huge"}})->aligment), 0);
    QCOMPARE(static_cast<int>(read({{"alignmentH", "hCenter"}})->aligment), 0); // the format misspells it
}

void TestRptFieldObject::font()
{
    const auto field = read({{"fontFamily", "DejaVu Sans"}, {"fontSize", "9"}, {"fontBold", "1"}, {"fontItalic", "1"}});
    QCOMPARE(field->font.family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(field->font.pointSize(), 9);
    QCOMPARE(field->font.weight(), 75);
    QCOMPARE(field->font.style(), QFont::StyleItalic);
    const QVector<QString> allFamilys = hostileTexts();
    for (const QString &family : allFamilys)
        QCOMPARE(read({{"fontFamily", family}})->font.family(), family);
}

void TestRptFieldObject::fontFlags_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isSet");
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QTest::newRow(qPrintable(known.first.left(20))) << known.first << (known.second != 0);
}

void TestRptFieldObject::fontFlags()
{
    QFETCH(QString, text);
    QFETCH(bool, isSet);
    QCOMPARE(read({{"fontBold", text}})->font.weight(), isSet ? 75 : 50);
    QCOMPARE(read({{"fontItalic", text}})->font.italic(), isSet);
    QCOMPARE(read({{"fontUnderline", text}})->font.underline(), isSet);
    QCOMPARE(read({{"fontStrikeout", text}})->font.strikeOut(), isSet);
}

void TestRptFieldObject::fontSizes()
{
    const LogCatcher log;
    const int usual = QFont().pointSize();
    for (const char *const none : {"0", "-5", "", "big", "9pt"})
        QCOMPARE(read({{"fontSize", none}})->font.pointSize(), usual);
    QCOMPARE(read({{"fontSize", "2147483647"}})->font.pointSize(), std::numeric_limits<int>::max());
    QCOMPARE(log.lines(), QStringList());
}

void TestRptFieldObject::cloneCopiesValues()
{
    RptBandObject band;
    const auto field = read({{"name", "a"},
                             {"value", "[1]"},
                             {"left", "3"},
                             {"width", "8"},
                             {"borderTop", "(1,2,3,4)"},
                             {"borderWidth", "4px"},
                             {"autoHeight", "1"},
                             {"textWrap", "0"},
                             {"rotate", "2"},
                             {"aligmentH", "hRight"},
                             {"borderStyle", "dotted"},
                             {"fontSize", "17"},
                             {"type", "image"},
                             {"format", "N#"},
                             {"highlighting", "h"},
                             {"imgFormat", "JPG"},
                             {"printing", "p"},
                             {"barcodeType", "20"},
                             {"picture", "aGVsbG8="},
                             {"lineEndX", "9"},
                             {"arrowEnd", "1"},
                             {"fontColor", "(5,6,7,8)"},
                             {"backgroundColor", "(9,8,7,6)"}});
    field->parentBand = &band;
    field->recNo = 5;
    field->reportPage = 2;
    field->setAbsoluteTop(77);
    field->backgroundColor = Qt::red;
    const std::unique_ptr<RptFieldObject> copy(field->clone());
    const auto allMembers = textMembers();
    for (const auto &member : allMembers)
        QCOMPARE((*copy).*member.member, (*field).*member.member);
    for (const auto &member : numberMembers)
        QCOMPARE((*copy).*member.member, (*field).*member.member);
    for (const auto &member : flagMembers)
        QCOMPARE((*copy).*member.member, (*field).*member.member);
    for (const auto &member : colorMembers)
        QCOMPARE((*copy).*member.member, (*field).*member.member);
    QCOMPARE(copy->rect, field->rect);
    QCOMPARE(copy->borderWidth, 4);
    QCOMPARE(copy->aligment, field->aligment);
    QCOMPARE(copy->font, field->font);
    QCOMPARE(copy->fieldType, static_cast<int>(Rpt::image));
    QCOMPARE(copy->picture, QByteArray("hello"));
    QCOMPARE(copy->parentBand, &band);
    QCOMPARE(copy->defaultFontColor, QColor(5, 6, 7, 8));
    QCOMPARE(copy->defaultBackgroundColor, QColor(9, 8, 7, 6));
    QCOMPARE(copy->recNo, 5);
    QCOMPARE(copy->reportPage, 2);
    QCOMPARE(copy->absoluteTop, 77);
}

QTEST_MAIN(TestRptFieldObject)
#include "tst_rptfieldobject.moc"
