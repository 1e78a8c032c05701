#pragma once

#include "session/session.h"
#include "supplierdata.h"
#include "suppliers/dialogreport.h"

#include <QDate>
#include <QSqlQuery>

/// The canteen of `SupplierData` with a day's menu and orders, in the company "Strojárne".
///
/// Branch 1, slot 1 "Obed" on 4 May 2031: of supplier 2 "Pekáreň" (pec@pekaren.sk, druhy@pekaren.sk, treti@pekaren.sk)
/// the foods 11 "Vývar" with 4 portions, 21 "Guláš" with 3 and 22 "Šúľance" with none; of supplier 3 "Bistro", which
/// has no mail, 23 "Rezeň" with 1; of supplier 4 "Gril" (gril@gril.sk) 24 "Steak" with none. For all branches, of
/// supplier 1 "Jedáleň": 51 "Halušky" with 6. Slot 2 "Večera" has no menu. Branch 2 "Sklad" has no supplier.
class DispatchData : public SupplierData {
public:
    explicit DispatchData(const TestDatabase &database)
        : SupplierData(database)
    {
        session().companyName = QStringLiteral("Strojárne");
        // Characters of four bytes pass only over a connection that asks for them, which is the host's to do.
        exec("SET NAMES utf8mb4");
        QSqlQuery(database.db()).exec(QStringLiteral("SET NAMES utf8mb4"));
        exec("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (4, 'Gril', 'GRI')");
        exec("UPDATE via_suppliers SET shortcut='PEK' WHERE supplierID=2");
        exec("UPDATE via_suppliers SET shortcut='BIS' WHERE supplierID=3");
        exec("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (4, 1)");
        exec("INSERT INTO via_suppliermails (supplierMailID, supplierID, mail) VALUES (14, 4, 'gril@gril.sk'), "
             "(15, 2, 'druhy@pekaren.sk'), (16, 2, 'treti@pekaren.sk')");
        exec("INSERT INTO via_segments (segmentID, name, position) VALUES (1, 'Obed', 1), (2, 'Večera', 2)");
        exec("INSERT INTO via_types (typeID, name, position) VALUES (91, 'Polievky', 1), (92, 'Hlavné jedlá', 2)");
        exec("INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (11, 91, 2, 'Vývar', 1), "
             "(21, 92, 2, 'Guláš', 4), (22, 92, 2, 'Šúľance', 4), (23, 92, 3, 'Rezeň', 4), (24, 92, 4, 'Steak', 9), "
             "(51, 92, 1, 'Halušky', 3)");
        exec("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, price, locked) VALUES "
             "(111, 11, 1, 1, '2031-05-04', 1, 1, 1), (121, 21, 1, 1, '2031-05-04', 2, 4, 1), "
             "(122, 22, 1, 1, '2031-05-04', 3, 4, 1), (123, 23, 1, 1, '2031-05-04', 4, 4, 1), "
             "(124, 24, 1, 1, '2031-05-04', 5, 9, 1), (151, 51, NULL, 1, '2031-05-04', 1, 3, 1)");
        exec("INSERT INTO people (uid, pid, surname, name) VALUES (7, 77, 'Žiak', 'Žofia'), (8, 78, 'Čech', 'Ján')");
        exec("INSERT INTO via_orders (orderableID, uid, quantity, ordered) VALUES (111, 7, 1, 'x'), (111, 8, 3, 'x'), "
             "(121, 7, 3, 'x'), (123, 8, 1, 'x'), (151, 7, 6, 'x')");
    }
    ~DispatchData() { session().companyName.clear(); }
    Q_DISABLE_COPY(DispatchData)

    static QDate day() { return QDate(2031, 5, 4); }
    /// Gives a cell any text: `column` of the one row of `table` whose `key` is that number.
    void rename(const char *table, const char *column, const char *key, int number, const QString &text) const
    {
        QSqlQuery query;
        query.prepare(QStringLiteral("UPDATE %1 SET %2=? WHERE %3=?")
                          .arg(QLatin1String(table), QLatin1String(column), QLatin1String(key)));
        query.addBindValue(text);
        query.addBindValue(number);
        if (!query.exec())
            qFatal("%s is not renamed", table);
    }
};
