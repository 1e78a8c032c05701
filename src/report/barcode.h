#pragma once

#include <QPair>
#include <QWidget>

class QDataStream;
class QPainter;

/// A widget for bar codes in a layout tool, and the names of their kinds. It has no encoder: it shows "NO_BARCODE".
class BarCode : public QWidget {
    Q_OBJECT
    // Stored with the widget, and watched by nobody. clazy:excludeall=qproperty-without-notify
    Q_PROPERTY(QString value READ value WRITE setValue)
    Q_PROPERTY(int barcodeHeight READ barcodeHeight WRITE setBarcodeHeight)

public:
    // clang-format off
    enum BarcodeTypes {
        CODE11 = 1, C25MATRIX = 2, C25INTER = 3, C25IATA = 4, C25LOGIC = 6, C25IND = 7, CODE39 = 8, EXCODE39 = 9,
        EANX = 13, EAN128 = 16, CODABAR = 18, CODE128 = 20, DPLEIT = 21, DPIDENT = 22, CODE16K = 23, CODE93 = 25,
        FLAT = 28, RSS14 = 29, RSS_LTD = 30, RSS_EXP = 31, TELEPEN = 32, UPCA = 34, UPCE = 37, POSTNET = 40,
        MSI_PLESSEY = 47, FIM = 49, LOGMARS = 50, PHARMA = 51, PZN = 52, PHARMA_TWO = 53, PDF417 = 55,
        PDF417TRUNC = 56, MAXICODE = 57, QRCODE = 58, CODE128B = 60, AUSPOST = 63, AUSREPLY = 66, AUSROUTE = 67,
        AUSREDIRECT = 68, ISBNX = 69, RM4SCC = 70, DATAMATRIX = 71, ITF14 = 72, CODABLOCKF = 74, NVE18 = 75,
        KOREAPOST = 77, RSS14STACK = 79, RSS14STACK_OMNI = 80, RSS_EXPSTACK = 81, PLANET = 82, MICROPDF417 = 84,
        ONECODE = 85, PLESSEY = 86, KIX = 90, AZTEC = 92, DAFT = 93, ITALYPOST = 94, DPD = 96, MICROQR = 97,
        TELEPEN_NUM = 128, CODE32 = 129, EANX_CC = 130, EAN128_CC = 131, RSS14_CC = 132, RSS_LTD_CC = 133,
        RSS_EXP_CC = 134, UPCA_CC = 135, UPCE_CC = 136, RSS14STACK_CC = 137, RSS14_OMNI_CC = 138,
        RSS_EXPSTACK_CC = 139,
    };
    // clang-format on
    Q_ENUM(BarcodeTypes)
    enum FrameTypes { NO_BORDER = 0, BIND = 2, BOX = 4 };
    Q_ENUM(FrameTypes)

    explicit BarCode(QWidget *parent = nullptr);

    QString value() const { return m_value; }
    int barcodeType() const { return m_barcodeType; }
    int frameType() const { return m_frameType; }
    int barcodeHeight() const { return m_barcodeHeight; }
    void setBarcodeType(int type) { m_barcodeType = type; }
    void setFrameType(int type) { m_frameType = type; }
    void setBarcodeHeight(int height) { m_barcodeHeight = height; }

    /// Draws the text in the middle of a rectangle.
    void drawBarcode(QPainter *painter, const QRect &rect) const;

    /// The name of a kind's number, empty for an unknown one.
    static QString typeName(int number);
    /// Numbers and names, in the order of the enumeration.
    static QList<QPair<int, QString>> typeList();
    static QList<QPair<int, QString>> frameTypeList();

public slots:
    /// Stores the text and repaints.
    void setValue(QString value);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_value = QStringLiteral("RptEngine");
    int m_barcodeType = CODE128;
    int m_frameType = NO_BORDER;
    int m_barcodeHeight = 50;
};

/// Writes and reads the stored properties of the widget (visibility and geometry among them), then its dynamic ones.
/// The two enumerations are mirrored into the dynamic properties `BarcodeTypes` and `FrameTypes`. A stream that breaks
/// off leaves the widget as it was.
QDataStream &operator<<(QDataStream &stream, const BarCode &barCode);
QDataStream &operator>>(QDataStream &stream, BarCode &barCode);
