#include "spreadsheet/xlsxcheck.h"

#include <QByteArray>
#include <QFile>
#include <QHash>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#undef signals // a name in GLib
#include <gsf/gsf-infile-zip.h>
#include <gsf/gsf-input-stdio.h>

namespace Spreadsheet {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template<typename Object> using Pointer = std::unique_ptr<Object, Unref>;

/// Looks through one part as it is unpacked, piece by piece.
class PartReader {
public:
    /// False if it cannot be unpacked.
    bool read(GsfInput *part);
    qint64 cellCount() const { return m_cellCount; }
    /// Whether the last tag closes the first one, which all others are in.
    bool isClosed() const;

private:
    void look(std::string_view piece);
    void countCells(std::string_view piece);

    qint64 m_cellCount = 0;
    std::string m_head;
    std::string m_tail;
};

bool PartReader::read(GsfInput *part)
{
    constexpr gsf_off_t pieceLength = 1 << 16;
    for (gsf_off_t left = gsf_input_remaining(part); left > 0; left = gsf_input_remaining(part)) {
        const auto length = std::size_t(std::min(left, pieceLength));
        const guint8 *const bytes = gsf_input_read(part, length, nullptr);
        if (!bytes)
            return false;
        look({reinterpret_cast<const char *>(bytes), length});
    }
    return true;
}

/// The tail is longer than the end tag of any part.
void PartReader::look(std::string_view piece)
{
    constexpr std::size_t headLength = 256;
    constexpr std::size_t tailLength = 64;
    countCells(piece);
    if (m_head.size() < headLength)
        m_head.append(piece.substr(0, headLength));
    m_tail.append(piece.substr(piece.size() - std::min(piece.size(), tailLength)));
    m_tail.erase(0, m_tail.size() - std::min(m_tail.size(), tailLength));
}

/// A cell begins with "<c ", which may lie across the border to the piece before; in a text there is no "<".
void PartReader::countCells(std::string_view piece)
{
    constexpr std::string_view cell = "<c ";
    constexpr std::size_t overlap = cell.size() - 1;
    std::string border = m_tail.substr(m_tail.size() - std::min(m_tail.size(), overlap));
    border.append(piece.substr(0, overlap));
    if (border.find(cell) != std::string::npos)
        ++m_cellCount;
    for (std::size_t at = piece.find(cell); at != std::string_view::npos; at = piece.find(cell, at + cell.size()))
        ++m_cellCount;
}

bool PartReader::isClosed() const
{
    const std::size_t declarationEnd = m_head.find("?>");
    const std::size_t root = m_head.find('<', declarationEnd);
    const std::size_t nameEnd = m_head.find_first_of(" >", root);
    if (declarationEnd == std::string::npos || nameEnd == std::string::npos)
        return false;
    const std::string endTag = "</" + m_head.substr(root + 1, nameEnd - root - 1) + ">";
    const std::size_t end = m_tail.find_last_not_of('\n') + 1;
    return end >= endTag.size() && m_tail.compare(end - endTag.size(), endTag.size(), endTag) == 0;
}

/// Cells by the name of the part. False for a part that is not whole.
bool readFolder(GsfInfile *folder, QHash<QByteArray, qint64> *cellCounts)
{
    const int count = gsf_infile_num_children(folder);
    for (int index = 0; index < count; ++index) {
        const Pointer<GsfInput> child(gsf_infile_child_by_index(folder, index));
        if (!child)
            return false;
        if (GSF_IS_INFILE(child.get()) && gsf_infile_num_children(GSF_INFILE(child.get())) >= 0) {
            if (!readFolder(GSF_INFILE(child.get()), cellCounts))
                return false;
            continue;
        }
        PartReader part;
        if (!part.read(child.get()) || !part.isClosed())
            return false;
        cellCounts->insert(gsf_input_name(child.get()), part.cellCount());
    }
    return count > 0;
}

bool readFile(const QString &fileName, QHash<QByteArray, qint64> *cellCounts)
{
    const Pointer<GsfInput> file(gsf_input_stdio_new(QFile::encodeName(fileName).constData(), nullptr));
    if (!file)
        return false;
    const Pointer<GsfInfile> container(gsf_infile_zip_new(file.get(), nullptr));
    return container && readFolder(container.get(), cellCounts);
}

} // namespace

bool isXlsxComplete(const QString &fileName, const QVector<qint64> &cellCounts, QString *error)
{
    QHash<QByteArray, qint64> found;
    bool complete = readFile(fileName, &found);
    for (int sheet = 0; sheet < cellCounts.size(); ++sheet)
        complete =
            complete && found.value("sheet" + QByteArray::number(sheet + 1) + ".xml", -1) == cellCounts.at(sheet);
    if (!complete)
        *error = QStringLiteral("the file is not complete; the disk, or that of temporary files, may be full");
    return complete;
}

} // namespace Spreadsheet
