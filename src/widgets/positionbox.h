#pragma once

class QAbstractItemModel;
class QComboBox;

/// The selector of a record's place among its like (meal types, service slots), counted from 1 without gaps.

/// Fills `box` with the positions of a list: the text of `column` of each row of `model`, in the order of the rows.
void fillPositions(QComboBox *box, const QAbstractItemModel &model, int column);

/// Adds the place behind all others, the number of items plus 1, and makes it current: where a new record goes.
void addLastPosition(QComboBox *box);

/// Makes `position` current, found by its text; a position that is not listed leaves nothing current.
void showPosition(QComboBox *box, unsigned position);
