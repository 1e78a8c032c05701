#pragma once

#include "spreadsheet/filereplacement.h"
#include "spreadsheet/modelfont.h"
#include "spreadsheet/modelsheet.h"

namespace Spreadsheet {

/// A book over `WorkbookData`: the same for both file formats but for what a `BookKind` tells.
class ModelBook final : public Book {
public:
    /// What makes a file format: its limits, and how a book becomes a new file, begun already. The writer leaves its
    /// reason in `error` when it fails.
    struct BookKind {
        BookLimits limits;
        bool (*write)(const WorkbookData &book, FileReplacement &file, QString *error);
    };

    explicit ModelBook(const BookKind &kind)
        : m_state(kind.limits)
        , m_write(kind.write)
    {
    }

    /// What was put in so far.
    const WorkbookData &data() const { return m_state.data; }

    bool setLocale(const QString &locale) override;
    void setDefaultFont(const QString &name, int size) override;
    QString defaultFontName() const override;
    int defaultFontSize() const override;
    void setRgbMode(bool rgbMode) override;
    int addCustomNumFormat(const QString &text) override;
    Color colorPack(int red, int green, int blue) const override;
    Font *addFont(const Font *initFont) override;
    Format *addFormat(const Format *initFormat) override;
    Sheet *addSheet(const QString &name, const Sheet *initSheet) override;
    bool save(const QString &fileName) override;
    QString errorMessage() const override;
    void release() override;

private:
    ~ModelBook() = default;

    bool isNumFormat(const QString &text) const;
    bool isNewSheetName(const QString &name) const;

    BookState m_state;
    bool (*const m_write)(const WorkbookData &book, FileReplacement &file, QString *error);
    bool m_rgbMode = false;
    // Lists whose elements stay where they are: callers hold pointers to them.
    std::deque<ModelFont> m_fonts;
    std::deque<ModelFormat> m_formats;
    std::deque<ModelSheet> m_sheets;
};

extern const ModelBook::BookKind xlsKind;
extern const ModelBook::BookKind xlsxKind;

} // namespace Spreadsheet
