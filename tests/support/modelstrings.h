#pragma once

#include <QStringList>

class QAbstractItemModel;

/// One row of a model as text: the display text of each cell, joined with "|".
QString rowText(const QAbstractItemModel &model, int row);
/// All rows of a model, each as `rowText` gives it.
QStringList rowTexts(const QAbstractItemModel &model);
/// The display texts of one column from top to bottom.
QStringList columnTexts(const QAbstractItemModel &model, int column);
