#include "report/rptscript.h"

#include "report/rptconstantscript.h"
#include "report/rptharmlessscript.h"
#include "report/rptscriptfunctions.h"

#include <QCache>
#include <QCoreApplication>
#include <QPointer>
#include <QScriptEngine>
#include <QScriptProgram>

namespace {

enum class Library { None, Report };

constexpr int maxPrograms = 500;
constexpr int maxEvaluations = 50000; // an engine keeps a little of every script; then another takes its place

/// What is known of one script's text.
struct Prepared {
    bool isHarmless = false;
    QScriptProgram program; // compiled at its first run; of harmless scripts only
};

/// An engine that stands, for scripts that leave nothing behind in it.
class StandingEngine : public QObject {
public:
    /// The engine with this library.
    static StandingEngine *get(Library library);

    explicit StandingEngine(Library library, QObject *parent);

    /// The result of a script, or an invalid value for one that might leave something behind.
    QScriptValue evaluate(const QString &script, bool showInGroup);

private:
    const Prepared &prepare(const QString &script);

    const Library m_library;
    QScriptEngine m_engine;
    QCache<QString, Prepared> m_prepared;
    int m_evaluations = 0;
    bool m_showInGroup = false;
};

/// What stands. The engines go with the application object, or with this library if the host unloads it before.
struct StandingEngines {
    StandingEngines() = default;
    ~StandingEngines()
    {
        delete plain;
        delete withFunctions;
    }
    Q_DISABLE_COPY(StandingEngines)

    QPointer<StandingEngine> plain;
    QPointer<StandingEngine> withFunctions;
};

StandingEngine *StandingEngine::get(Library library)
{
    static StandingEngines engines;
    QPointer<StandingEngine> &engine = library == Library::Report ? engines.withFunctions : engines.plain;
    if (engine && engine->m_evaluations >= maxEvaluations)
        delete engine;
    if (!engine)
        engine = new StandingEngine(library, QCoreApplication::instance());
    return engine;
}

StandingEngine::StandingEngine(Library library, QObject *parent)
    : QObject(parent)
    , m_library(library)
    , m_prepared(maxPrograms)
{
    if (m_library == Library::Report)
        addReportFunctions(&m_engine, m_showInGroup);
}

const Prepared &StandingEngine::prepare(const QString &script)
{
    if (const Prepared *const known = m_prepared.object(script))
        return *known;
    const QScriptValue global = m_engine.globalObject();
    auto *const prepared = new Prepared;
    prepared->isHarmless =
        isHarmlessScript(script, [&global](const QString &name) { return global.property(name).isValid(); });
    if (prepared->isHarmless)
        prepared->program = QScriptProgram(script, QString(), 1);
    m_prepared.insert(script, prepared);
    return *m_prepared.object(script);
}

QScriptValue StandingEngine::evaluate(const QString &script, bool showInGroup)
{
    const Prepared &prepared = prepare(script);
    if (!prepared.isHarmless)
        return QScriptValue();
    ++m_evaluations;
    if (m_library == Library::Report && m_showInGroup != showInGroup) {
        setShowInGroup(&m_engine, showInGroup);
        m_showInGroup = showInGroup;
    }
    return m_engine.evaluate(prepared.program);
}

/// Runs a script where it may run, and reads its result while the engine is there.
template<typename Read> auto run(const QString &script, Library library, bool showInGroup, Read read)
{
    const QScriptValue result = StandingEngine::get(library)->evaluate(script, showInGroup);
    if (result.isValid())
        return read(result);
    QScriptEngine fresh;
    if (library == Library::Report)
        addReportFunctions(&fresh, showInGroup);
    return read(fresh.evaluate(script, QString(), 1));
}

QString asText(const QScriptValue &value)
{
    return value.toString();
}

double asWholeNumber(const QScriptValue &value)
{
    return value.toInteger();
}

} // namespace

namespace RptScript {

QString formulaText(const QString &script, bool showInGroup)
{
    if (const std::optional<QString> text = RptConstantScript::text(script))
        return *text;
    return run(script, Library::Report, showInGroup, asText);
}

QString conditionText(const QString &script)
{
    if (const std::optional<QString> text = RptConstantScript::text(script))
        return *text;
    return run(script, Library::None, false, asText);
}

double conditionNumber(const QString &script)
{
    if (const std::optional<double> number = RptConstantScript::wholeNumber(script))
        return *number;
    return run(script, Library::None, false, asWholeNumber);
}

} // namespace RptScript
