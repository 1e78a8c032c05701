#pragma once

#include "spreadsheet/modelformat.h"

#include <deque>

namespace Spreadsheet {

/// A sheet of a book: writes its `SheetData` within the limits of the book's file format.
class ModelSheet final : public Sheet {
public:
    /// All must outlive the sheet. `formats` are those of the book; place 0 is the format of index 1.
    ModelSheet(BookState &state, SheetData &data, std::deque<ModelFormat> &formats)
        : m_state(state)
        , m_data(data)
        , m_formats(formats)
    {
    }

    bool writeStr(int row, int col, const QString &text, const Format *format) override;
    bool writeNum(int row, int col, double value, const Format *format) override;
    double readNum(int row, int col, const Format **format) const override;
    bool setCol(int first, int last, double width, const Format *format, bool hidden) override;
    bool setRow(int row, double height, const Format *format, bool hidden) override;
    bool setColHidden(int col, bool hidden) override;
    bool setMerge(int rowFirst, int rowLast, int colFirst, int colLast) override;
    void setDisplayGridlines(bool show) override;
    void setPrintGridlines(bool print) override;
    void setMarginLeft(double margin) override;
    void setMarginRight(double margin) override;
    void setMarginTop(double margin) override;
    void setMarginBottom(double margin) override;
    void setPrintFit(int wPages, int hPages) override;
    void setLandscape(bool landscape) override;
    void setPaper(Paper paper) override;
    bool setPrintRepeatRows(int rowFirst, int rowLast) override;
    bool setFooter(const QString &footer) override;

private:
    Cell *cellAt(int row, int col, const Format *format);
    bool isFree(const MergeData &place) const;
    void setMargin(double &target, double margin);

    BookState &m_state;
    SheetData &m_data;
    std::deque<ModelFormat> &m_formats;
    int m_lastMergedRow = -1;
};

} // namespace Spreadsheet
