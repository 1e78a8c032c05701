#pragma once

#include <QString>

#include <memory>

/// Writing of workbooks, in the binary XLS and in the XLSX format, through one interface.
///
/// A book is made by `xlCreateBookA` or `xlCreateXMLBookA`, filled through its sheets, formats and fonts, and written
/// whole by `Book::save`. Everything lives in memory until then, and everything belongs to the book. Rows and columns
/// count from 0. An operation that cannot be done changes nothing, says so by its result, and leaves the reason in
/// `Book::errorMessage`. Not supported: reading of files, formulas, pictures, comments, and files bound to a password.
///
/// Texts are never looked into: one that begins with "=" is a text.
namespace Spreadsheet {

/// A colour: an index into the standard palette (the constants below, or any from 8 to 63), or what
/// `Book::colorPack` gives.
using Color = int;
constexpr Color colorBlack = 8;
constexpr Color colorWhite = 9;
constexpr Color colorGray25 = 22;
constexpr Color colorGray50 = 23;
/// The system's own colour of letters and lines.
constexpr Color colorAutomatic = 0x7fff;

enum class AlignH { General, Left, Center, Right };
enum class AlignV { Top, Center, Bottom };
/// The numbers are those of the file formats.
enum class BorderStyle { None = 0, Thin = 1, Medium = 2, Dashed = 3, Dotted = 4, Thick = 5, Double = 6, Hair = 7 };
enum class FillPattern { None, Solid };
/// The numbers are those of the file formats.
enum Paper { PAPER_DEFAULT = 0, PAPER_A4 = 9 };

/// The number format of a new format: as the program sees fit.
constexpr int generalNumFormat = 0;

/// A font for formats. Changes count for every format that has it, those set before included.
class Font {
public:
    /// Points, 1 to 409.
    virtual void setSize(int size) = 0;
    virtual void setBold(bool bold) = 0;
    virtual void setColor(Color color) = 0;
    /// 1 to 31 characters, no control characters.
    virtual void setName(const QString &name) = 0;

protected:
    ~Font() = default;
};

/// The look of cells. Changes count for every cell that has it, those written before included.
class Format {
public:
    /// A font of the same book; null for the default font.
    virtual void setFont(const Font *font) = 0;
    /// `generalNumFormat`, or what `Book::addCustomNumFormat` gave.
    virtual void setNumFormat(int numFormat) = 0;
    virtual void setAlignH(AlignH align) = 0;
    virtual void setAlignV(AlignV align) = 0;
    virtual void setWrap(bool wrap) = 0;
    /// All four sides.
    virtual void setBorder(BorderStyle style) = 0;
    virtual void setBorderColor(Color color) = 0;
    virtual void setBorderTop(BorderStyle style) = 0;
    virtual void setBorderBottom(BorderStyle style) = 0;
    virtual void setBorderTopColor(Color color) = 0;
    virtual void setBorderBottomColor(Color color) = 0;
    virtual void setFillPattern(FillPattern pattern) = 0;
    /// The colour of a solid fill.
    virtual void setPatternForegroundColor(Color color) = 0;

protected:
    ~Format() = default;
};

/// One sheet. All results are false for a row, column or value that the book's file format cannot hold, and for a
/// format of another book.
class Sheet {
public:
    /// At most 32,767 UTF-16 code units. A null `format` is the default look. A cell that is written twice keeps the
    /// last.
    virtual bool writeStr(int row, int col, const QString &text, const Format *format = nullptr) = 0;
    /// A finite number.
    virtual bool writeNum(int row, int col, double value, const Format *format = nullptr) = 0;
    /// What `writeNum` wrote there last, and 0 for a text or an empty cell. `format`, if given, becomes the cell's
    /// format, null for the default look and for an empty cell.
    virtual double readNum(int row, int col, const Format **format = nullptr) const = 0;

    /// Widths of columns `first` to `last`, in average digits of the default font, 0 to 255.
    virtual bool setCol(int first, int last, double width, const Format *format = nullptr, bool hidden = false) = 0;
    /// Height of a row in points, 0 to 409.
    virtual bool setRow(int row, double height, const Format *format = nullptr, bool hidden = false) = 0;
    virtual bool setColHidden(int col, bool hidden) = 0;
    /// Makes one cell of several; its content is that of the first one. The others take its format in the file, unless
    /// they have one of their own. False for a single cell, and where another merged cell lies already.
    virtual bool setMerge(int rowFirst, int rowLast, int colFirst, int colLast) = 0;

    virtual void setDisplayGridlines(bool show) = 0;
    virtual void setPrintGridlines(bool print) = 0;
    /// Inches, 0 to 49.
    virtual void setMarginLeft(double margin) = 0;
    virtual void setMarginRight(double margin) = 0;
    virtual void setMarginTop(double margin) = 0;
    virtual void setMarginBottom(double margin) = 0;
    /// Shrinks the print to so many pages across and down; 0 is as many as it takes.
    virtual void setPrintFit(int wPages, int hPages) = 0;
    virtual void setLandscape(bool landscape) = 0;
    virtual void setPaper(Paper paper) = 0;
    /// Rows that are printed at the head of each page.
    virtual bool setPrintRepeatRows(int rowFirst, int rowLast) = 0;
    /// The middle of the page's foot: text, "&P" for the page and "&N" for the number of pages. At most 253 characters
    /// (the file formats hold 255 and want two of them for the place), of control characters only line ends.
    virtual bool setFooter(const QString &footer) = 0;

protected:
    ~Sheet() = default;
};

/// A workbook.
class Book {
public:
    /// True for "UTF-8" in any case, the one encoding there is; texts are Unicode all the same.
    virtual bool setLocale(const QString &locale) = 0;
    /// The font of cells without a format, and of formats without a font. Sheets measure columns by it.
    virtual void setDefaultFont(const QString &name, int size) = 0;
    virtual QString defaultFontName() const = 0;
    virtual int defaultFontSize() const = 0;
    /// Whether `colorPack` gives colours as they are; otherwise the nearest one of the standard palette.
    virtual void setRgbMode(bool rgbMode) = 0;
    /// The number to give to `Format::setNumFormat`; the same text gives the same number. -1 when the file format can
    /// hold no more, and for a text that is empty, too long (more than 255 bytes of UTF-8 in XLS, 127 in XLSX) or has
    /// control characters.
    virtual int addCustomNumFormat(const QString &text) = 0;
    /// Red, green and blue, 0 to 255 each; `colorAutomatic` for anything else.
    virtual Color colorPack(int red, int green, int blue) const = 0;
    /// A copy of `initFont`, a font of the same book, or of the default font. Null when the file format can hold no
    /// more.
    virtual Font *addFont(const Font *initFont = nullptr) = 0;
    /// A copy of `initFormat`, a format of the same book, or the default look. Null when the file format can hold no
    /// more.
    virtual Format *addFormat(const Format *initFormat = nullptr) = 0;
    /// Null for a name that is empty, longer than 31 characters, taken (in any case), with one of `[]:*?/\` or a
    /// control character in it or with an apostrophe at an end, and for a 256th sheet. `initSheet` is null.
    virtual Sheet *addSheet(const QString &name, const Sheet *initSheet = nullptr) = 0;
    /// Writes the file, or leaves everything as it was: a file of that name, from before, stays until the new one is
    /// complete, and stays for good where it is locked by another program. A book without a sheet cannot be saved. May
    /// be called again.
    virtual bool save(const QString &fileName) = 0;
    /// Why the last operation that failed did so, in English; empty before the first.
    virtual QString errorMessage() const = 0;
    /// Frees the book and all that belongs to it.
    virtual void release() = 0;

protected:
    ~Book() = default;
};

struct ReleaseBook {
    void operator()(Book *book) const { book->release(); }
};
using BookPointer = std::unique_ptr<Book, ReleaseBook>;

/// A book of the binary XLS format (BIFF8): at most 65,536 rows, 256 columns, 4,000 formats, 500 fonts, 200 custom
/// number formats, and 56 different colours, which only `Book::save` counts.
BookPointer xlCreateBookA();
/// A book of the XLSX format: at most 1,048,576 rows, 16,384 columns and 64,000 formats.
BookPointer xlCreateXMLBookA();

} // namespace Spreadsheet
