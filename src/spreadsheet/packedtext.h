#pragma once

#include <QString>

namespace Spreadsheet {

/// The characters of a text as an XLS file has them: 8 bits each where that is enough for all of them, otherwise
/// UTF-16, little-endian. The bytes belong to someone else.
struct PackedText {
    const uchar *bytes;
    int size; ///< in UTF-16 code units
    bool isWide; ///< whether characters have 16 bits: the option byte of the file's strings
    bool hasLineEnd; ///< whether one of them is a line feed

    int bytesPerUnit() const { return isWide ? 2 : 1; }
    int byteCount() const { return size * bytesPerUnit(); }
};

/// Packs a text at `to`, where there is room for all of it in 16 bits. A half of a surrogate pair that stands alone,
/// which readers stumble over, becomes U+FFFD.
PackedText packText(const QString &text, uchar *to);
QString unpackText(const PackedText &text);

} // namespace Spreadsheet
