// The language of texts and conditions, on any bytes: no crash, and the same answer twice.
#include "fuzz/fuzzapplication.h"
#include "report/rptbandobject.h"
#include "report/rptexpression.h"
#include "report/rptfieldobject.h"
#include "report/rptprintstate.h"
#include "report/rpttext.h"
#include "report/rptvalues.h"

#include <cstdint>
#include <cstdlib>

namespace {

constexpr int longest = 400;

/// Gives every token a value that depends on its name.
class Values : public RptValueSource {
public:
    RptTokenValue tokenValue(const QString &token) override
    {
        RptTokenValue value;
        value.text = token.size() % 2 ? QString::number(token.size() * 1.5) : token.mid(1, 3);
        return value;
    }
};

void expand(const QString &text)
{
    Values source;
    RptPrintState state;
    RptText texts(&source, &RptValues::instance(), &state);
    const RptBandObject band;
    RptFieldObject field;
    field.value = text;
    field.printing = text;
    field.highlighting = text;
    const QString format = text.right(12);
    const QString printed = texts.expandText(&band, text, false, true, format);
    // <Time> may move on between two calls; all else answers the same.
    if (!text.contains(QLatin1String("<Time>")) && !text.contains(QLatin1String("<LineCount>"))
        && !text.contains(QLatin1Char('(')) && !text.contains(QLatin1String("Date"))
        && printed != texts.expandText(&band, text, false, true, format))
        std::abort();
    texts.expandText(&band, text, true, false, QString());
    texts.fieldIsPrinted(field);
    for (const RptAspect aspect : {RptAspect::Bold, RptAspect::FontColor, RptAspect::BackgroundColor})
        texts.highlightValue(field, aspect);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    makeFuzzApplication();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(qMin<std::size_t>(size, longest)));
    // Cutting loses nothing: the tokens joined are the text.
    if (RptExpression::tokens(text, false).join(QString()) != text
        || RptExpression::splitByBrackets(text).join(QString()) != text)
        std::abort();
    if (!mayRunAway(text))
        expand(text);
    RptValues::instance().clear();
    return 0;
}
