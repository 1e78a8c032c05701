#include "spreadsheet/xlsstrings.h"

#include <algorithm>

namespace Spreadsheet {

namespace {

/// Where the first string of a group stands.
struct GroupPlace {
    quint32 position;
    int positionInRecord;
};

/// EXTSST has one place for each group of so many strings, at least 8 and never more groups than fit its record.
int groupSize(int texts)
{
    constexpr int maxGroups = 1024;
    return std::max(8, texts / maxGroups + 1);
}

void continueRecord(RecordStream &stream)
{
    stream.end();
    stream.begin(Biff::CONTINUE);
}

/// Whether the first `size` characters of a text end in the middle of a surrogate pair.
bool endsInHalf(const PackedText &text, int size)
{
    return text.isWide
        && QChar::isHighSurrogate(qFromLittleEndian<quint16>(text.bytes + std::ptrdiff_t(2) * (size - 1)));
}

/// How many characters from `done` on the present record takes. A surrogate pair stays together: readers decode what
/// each record has by itself.
int charactersThatFit(const RecordStream &stream, const PackedText &text, int done)
{
    const int left = text.size - done;
    const int fitting = stream.room() / text.bytesPerUnit();
    if (fitting >= left)
        return left;
    return fitting > 0 && endsInHalf(text, done + fitting) ? fitting - 1 : fitting;
}

/// A string begins in the present record when its length, its option byte and its first two characters have room there.
/// Where its characters go on in another record, that begins with the option byte again, and no character is cut:
/// "gulášik" as 16-bit characters with 9 bytes left is length, option byte and "gul", then option byte and "ášik".
GroupPlace writeText(RecordStream &stream, const PackedText &text)
{
    constexpr int prefixSize = 3;
    if (stream.room() < prefixSize + std::min(text.size, 2) * text.bytesPerUnit())
        continueRecord(stream);
    const GroupPlace place{stream.position(), stream.positionInRecord()};
    stream.u16(text.size).u8(text.isWide);
    for (int done = 0;;) {
        const int count = charactersThatFit(stream, text, done);
        stream.units(text, done, count);
        done += count;
        if (done == text.size)
            return place;
        continueRecord(stream);
        stream.u8(text.isWide);
    }
}

/// SST
std::vector<GroupPlace> writeTexts(RecordStream &stream, const TextTable &texts)
{
    std::vector<GroupPlace> places;
    const int group = groupSize(texts.size());
    stream.begin(Biff::SST).u32(0).u32(quint32(texts.size()));
    for (int index = 0; index < texts.size(); ++index) {
        const GroupPlace place = writeText(stream, texts.packed(index));
        if (index % group == 0)
            places.push_back(place);
    }
    stream.end();
    return places;
}

/// EXTSST
void writePlaces(RecordStream &stream, const std::vector<GroupPlace> &places, int group)
{
    stream.begin(Biff::EXTSST).u16(group);
    for (const GroupPlace &place : places)
        stream.u32(place.position).u16(place.positionInRecord).u16(0);
    stream.end();
}

} // namespace

quint32 writeSharedStrings(RecordStream &stream, const TextTable &texts)
{
    constexpr quint32 headerSize = 4;
    const quint32 usesPlace = stream.position() + headerSize;
    const std::vector<GroupPlace> places = writeTexts(stream, texts);
    writePlaces(stream, places, groupSize(texts.size()));
    return usesPlace;
}

} // namespace Spreadsheet
