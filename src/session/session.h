#pragma once

#include <QString>

/// The values of the running session, one instance for the whole plug-in. The shell writes them from the host's
/// options; every room may read them. GUI thread only.
struct Session {
    /// True closes the editing controls of the board, the catalogue and the suppliers, and the settings entry.
    bool readOnly = false;
    /// Name of the company for exports and order mails; empty when the host gave none.
    QString companyName;
    /// Level of the extra log lines of the CSV exchange and the spreadsheet writers. Nothing writes it: it is not the
    /// level that the host sets, which gates the shell's own lines only, and those extra lines stay silent on purpose.
    quint8 debugLevel = 0;
};

/// The one instance, made with the defaults above at the first call.
Session &session();
