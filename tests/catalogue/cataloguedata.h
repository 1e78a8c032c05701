#pragma once

#include "support/testdatabase.h"

/// A small catalogue in a fresh database: two suppliers, two meal types, three foods, two slots, two branches, three
/// allergens.
inline void fillCatalogue(const TestDatabase &database)
{
    database.clear();
    database.exec(
        QStringLiteral("INSERT INTO via_types (typeID, name, position, informative) VALUES (1, 'Polievky', 1, "
                       "1), (2, 'Hlavné jedlá', 2, 0)"));
    database.exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (4, 'Jedáleň', 'J'), "
                                 "(5, 'Bistro', 'B')"));
    database.exec(QStringLiteral("INSERT INTO via_alergens (alergenID, title) VALUES (1, 'Lepok'), (3, 'Vajcia'), (7, "
                                 "'Mlieko')"));
    database.exec(QStringLiteral(
        "INSERT INTO via_foods (foodID, typeID, supplierID, name, description, picture, price) VALUES (1, 1, 4, "
        "'Polievka dňa', 's kuracím mäsom', x'0102', 1.5), (2, 2, 4, 'Rezeň', 'zemiakový šalát', NULL, 4.25), (3, 2, "
        "5, "
        "'Guláš', NULL, NULL, 3)"));
    database.exec(QStringLiteral("INSERT INTO via_foodalergen (foodID, alergenID) VALUES (1, 1), (1, 7), (2, 3)"));
    database.exec(QStringLiteral("INSERT INTO via_segments (segmentID, name, start, stop, position) VALUES (1, 'Obed', "
                                 "'11:00', '13:00', 2), (2, "
                                 "'Raňajky', '06:00', '08:00', 1)"));
    database.exec(QStringLiteral("INSERT INTO branches (bid, name) VALUES (6, 'Košice'), (7, 'Nitra')"));
}
