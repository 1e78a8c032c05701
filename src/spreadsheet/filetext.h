#pragma once

#include <QString>

namespace Spreadsheet {

/// A text as the strings of an XLS file hold it: 8 bits a character where that is enough for all of them, otherwise
/// UTF-16. A half of a surrogate pair that stands alone, which readers stumble over, becomes U+FFFD.
class FileText {
public:
    /// The text must outlive it.
    explicit FileText(const QString &text);
    Q_DISABLE_COPY(FileText)

    const ushort *units() const { return m_units; }
    int size() const { return m_size; }
    /// Whether characters have 16 bits: also the option byte of the string.
    bool isWide() const { return m_wide; }
    int bytesPerUnit() const { return m_wide ? 2 : 1; }

private:
    const ushort *m_units;
    const int m_size;
    bool m_wide;
    QString m_repaired;
};

} // namespace Spreadsheet
