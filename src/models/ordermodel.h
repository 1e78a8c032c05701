#pragma once

#include "models/sqllistmodel.h"

#include <QDate>

class QStandardItemModel;

/// The read-only queries on orders behind the order lists, the printouts and the monthly spreadsheets. Two of them load
/// the model itself and give it back; three give a new model, which the caller owns and which has no headers.
///
/// Every failure is one critical log line, in the words given with each operation; nothing is shown, and the model
/// stays empty. A NULL is empty text in every cell.
class OrderModel : public SqlListModel {
    Q_OBJECT

public:
    explicit OrderModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// All orders by surname, in this model. Columns: 0 orderID, 1 orderableID, 2 date, 3 segmentID, 4 slot's name,
    /// 5 food's name, 6 person's name, 7 surname, 8 quantity, 9 price of a piece, 10 ordered, 11 delivered.
    /// Log: "OrderModel - setQuery ERROR: [%s]: %s".
    OrderModel *allOrders();

    /// Who ordered one menu item, in this model. Columns: 0 pid, 1 name and surname, 2 quantity; the person's cells are
    /// empty once the host has deleted the person. Log: "OrderModel - orderPeopleList ERROR: [%s]: %s".
    OrderModel *orderPeopleList(uint orderableID);

    /// One person's orders from `dateFrom` to `dateTo`, both included, by date and slot. Columns: 0 date "dd. MM.
    /// yyyy", 1 slot's name, 2 food's name, 3 price (double), 4 quantity, 5 quantity times price (double), 6 who
    /// entered the order, as stored, 7 delivered "dd.MM.yyyy hh:mm:ss" or empty. Log: "OrderModel - personDateOrders
    /// ERROR: ...".
    QStandardItemModel *personDateOrders(QDate dateFrom, QDate dateTo, int uid);

    /// The orders of one day and slot, by surname in Slovak order. `branchID` 0 stands for menus without a branch,
    /// which are not those of any branch. Columns: 0 "surname name *[pid]", 1 supplier's mark and food, 2 quantity, 3
    /// delivered. Logs its arguments. Log of a failure: "OrderModel - segmentOrders ERROR: ...".
    QStandardItemModel *segmentOrders(QDate date, uint segmentID, uint branchID);

    /// What each active person ordered from `dateFrom` to `dateTo`, both included, by personal number. With `branchID`
    /// 0: everybody with an order. Otherwise: every member of that branch, with sums of 0 where there is no order;
    /// orders count whatever branch the menu was for. Columns: 0 pid, 1 pamId, 2 surname and name, 3 quantity as a
    /// number, 4 quantity as text, 5 sum with two decimals as text. Logs its dates and the sums. A failure is logged as
    /// "OrderModel - personDateOrders ERROR: ...", the words of that other operation, on purpose.
    QStandardItemModel *branchDateOrders(QDate dateFrom, QDate dateTo, uint branchID);
};
