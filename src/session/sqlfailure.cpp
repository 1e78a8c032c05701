#include "session/sqlfailure.h"

#include <QDebug>
#include <QMessageBox>
#include <QSqlError>

namespace SqlFailure {

void log(const char *tag, const QSqlError &error)
{
    qCritical("%s - SQL ERROR: %s", tag, error.text().toLocal8Bit().constData());
}

void logWithCode(const char *tag, const QSqlError &error)
{
    qCritical("%s ERROR: [%s]: %s", tag, error.nativeErrorCode().toLocal8Bit().constData(),
              error.text().toLocal8Bit().constData());
}

void show(const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace SqlFailure
