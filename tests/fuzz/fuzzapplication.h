#pragma once

#include <QApplication>
#include <QString>

/// The application object that fonts, pictures and charts need, without a display and without a word in the log. Never
/// destroyed: the fuzzer leaves by _exit.
inline void makeFuzzApplication()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    new QApplication(argc, argv);
}

/// Whether a text may hold a script that does not end or takes all memory: that is the script's own affair, and would
/// only stop the fuzzer.
inline bool mayRunAway(const QString &text)
{
    for (const char *word : {"while", "for", "do", "function", "eval", "Array", "join", "split", "replace", "RegExp",
                             "match", "search", "\\u", "toFixed", "toString", "concat", "String", "gc"}) {
        if (text.contains(QLatin1String(word), Qt::CaseInsensitive))
            return true;
    }
    return false;
}
