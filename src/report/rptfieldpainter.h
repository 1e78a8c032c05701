#pragma once

#include <QRect>

class QImage;
class QPen;
class QPainter;
class QString;
class QTextDocument;
class RptEngine;
class RptFieldObject;
class RptLayout;
struct RptPrintState;

/// Turns a field into marks on the page, or, without drawing, measures it. In HTML mode labels and images are also
/// appended to the print's text. Positions drop the fraction of a device unit.
class RptFieldPainter {
public:
    /// All outlive the object.
    RptFieldPainter(RptEngine &engine, RptLayout &layout);

    /// Offers a field of any type to the caller and, if its band grows with it, measures it. `bandY` is the band's top
    /// in template units.
    void measureField(RptFieldObject &field, qint64 bandY);
    /// Draws a field of any type. The caller is asked for it first; a field that is not to be printed leaves no mark.
    void drawField(RptFieldObject &field, qint64 bandY);
    /// Draws a field of type line: what `drawField` draws of it, its frame, and the line between its two points.
    void drawLineField(RptFieldObject &field, qint64 bandY);

private:
    QRect deviceRect(const RptFieldObject &field, qint64 bandY) const;
    bool isActive() const;
    QPen borderPen(const RptFieldObject &field) const;

    void drawByType(RptFieldObject &field, const QRect &area);
    void drawFrame(const RptFieldObject &field, const QRect &area);
    void drawShape(const RptFieldObject &field, const QRect &area);
    void drawValueImage(RptFieldObject &field, const QRect &area);
    void drawTemplateImage(RptFieldObject &field, const QRect &area);
    void drawDiagram(RptFieldObject &field, const QRect &area);
    void drawArrow(const QPointF &tip, double firstAngle, double secondAngle, int size);

    void drawRichText(const RptFieldObject &field, const QRect &area);
    void replaceTokens(const RptFieldObject &field, QTextDocument *document);
    QString labelText(const RptFieldObject &field);
    void measureLabel(const RptFieldObject &field, const QRect &area);
    void drawLabel(RptFieldObject &field, const QRect &area);
    void drawLabelText(const RptFieldObject &field, const QRect &area, const QString &text);
    void drawCrossTab(RptFieldObject &field, qint64 bandY);

    RptEngine &m_engine;
    RptLayout &m_layout;
    RptPrintState &m_state;
    int m_crossTabPages = 0; ///< that a cross table has added, one within the other
};
